#pragma once
// The result family: tables of a calculation case's results, one row per case
// and network element (node, pipe, station, pump; or one row per case), keyed
// by the case name first, then by 0, 1 or 2 element keys.
//
// A class declares its table once, from its own patterns, column table and
// messages:
//
//   const ResultTable<SimuStaRecord, 1> kStations{
//       .columns = kColumns, .caseName = &SimuStaRecord::ProjName, .keys = {&SimuStaRecord::StaName},
//       .loadOne = ForElement<kLoadOne>, .loadCase = ByKey<kLoadCase>,
//       .deleteOne = ForElement<kDeleteOne>, .deleteCase = ByKey<kDeleteCase>,
//       .emptyCase = ErrorMessage("..."), .emptyKeys = {ErrorMessage("...")},
//       .deleteTableMissing = ErrorMessage("..."), .saveTableMissing = ErrorMessage("...")};
//
// and each of its operations is one call of CResultObject. Every operation
// refuses an empty case name or element key with the table's message before
// any database access; deletes probe the table first; saves replace the rows of
// each (case, element) they carry and append the new rows in one write.
#include <array>
#include <span>
#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

#include "network/Catalogue.h"

namespace petrodb::network {

// The element keys of a result row after its case name.
template <std::size_t K>
using ElementKeys = std::array<const char*, K>;

// A statement maker from a pattern whose values are the case, then the element keys.
template <const auto& P>
Statement ForElement(const char* caseName,
                     const ElementKeys<std::remove_cvref_t<decltype(P)>::conversions - 1>& keys) {
  return std::apply([&](auto... key) { return P(caseName, key...); }, keys);
}

template <class Record, std::size_t K>
struct ResultTable {
  using Keys = ElementKeys<K>;

  const ColumnTable<Record>& columns;
  std::string Record::*caseName;                // the case column's member
  std::array<std::string Record::*, K> keys{};  // the element keys' members
  Statement (*loadOne)(const char*, const Keys&) = nullptr;
  Statement (*exists)(const char*, const Keys&) = nullptr;  // when null, loadOne
  Statement (*loadCase)(const char*) = nullptr;             // the case's rows, ordered
  // Read after `columns` by the case load where it joins the network's table
  // (the element's type number and name).
  const ColumnTable<Record>* joined = nullptr;
  Statement (*deleteOne)(const char*, const Keys&) = nullptr;
  Statement (*deleteCase)(const char*) = nullptr;
  Message emptyCase{};
  std::array<Message, K> emptyKeys{};  // a key whose message is empty is not checked
  // When given: the one message for an empty case or key of an operation that
  // takes both (emptyCase then serves the operations that take the case alone).
  Message emptyCaseOrKey{};
  Message deleteTableMissing{};
  Message saveTableMissing{};
  Message saveFailed = kSaveFailed;

  ReplaceSteps saveSteps() const { return {columns.table(), Probe::First, saveTableMissing, saveFailed}; }
};

template <class Interface>
class CResultObject : public CDataObject<Interface> {
 protected:
  // The one result of an element of the case. False when there is none or a
  // field cannot be read.
  template <class R, std::size_t K>
  bool LoadResult(const ResultTable<R, K>& t, const char* caseName, const ElementKeys<K>& keys, R& record) const {
    return Given(t, caseName, keys) && this->LoadOne(t.loadOne(caseName, keys), t.columns, record);
  }

  // The case's rows, emptied first; false when none is found or at the first
  // row that cannot be read.
  template <class R, std::size_t K>
  bool LoadCaseResults(const ResultTable<R, K>& t, const char* caseName, std::vector<R>& out) const {
    out.clear();
    if (!KeyGiven(caseName, t.emptyCase)) return false;
    if (!t.joined) return this->LoadAll(t.loadCase(caseName), t.columns, out, Fill::Clear).found();
    return this->LoadRows(t.loadCase(caseName), out, Fill::Clear, [&t](const CDbManage& db, R& r) {
                 return t.columns.Read(db, r) && t.joined->Read(db, r);
               }).found();
  }

  template <class R, std::size_t K>
  bool ResultExists(const ResultTable<R, K>& t, const char* caseName, const ElementKeys<K>& keys) const {
    return Given(t, caseName, keys) && this->Exists((t.exists ? t.exists : t.loadOne)(caseName, keys));
  }

  // Deletes an element's rows through `statement` (the table's own delete
  // unless given another); the delete's result.
  template <class R, std::size_t K>
  bool DeleteResult(const ResultTable<R, K>& t, const char* caseName, const ElementKeys<K>& keys,
                    Statement (*statement)(const char*, const ElementKeys<K>&) = nullptr) const {
    if (!Given(t, caseName, keys) || !Probed(t)) return false;
    return this->Execute((statement ? statement : t.deleteOne)(caseName, keys));
  }

  // One delete per element of a single-key table, all sent on one session
  // whatever each answers; false when any failed. An empty element refuses the
  // list before anything is sent.
  template <class R>
  bool DeleteResults(const ResultTable<R, 1>& t, const char* caseName, const std::vector<std::string>& elements,
                     Statement (*statement)(const char*, const ElementKeys<1>&) = nullptr) const {
    if (!KeyGiven(caseName, t.emptyCase)) return false;
    for (const auto& e : elements)
      if (!Given(t, caseName, {e.c_str()})) return false;
    if (!Probed(t)) return false;
    const auto make = statement ? statement : t.deleteOne;
    return this->ExecuteEach(elements, [&](const std::string& e) { return make(caseName, {e.c_str()}); });
  }

  template <class R, std::size_t K>
  bool DeleteCaseResults(const ResultTable<R, K>& t, const char* caseName) const {
    if (!KeyGiven(caseName, t.emptyCase) || !Probed(t)) return false;
    return this->Execute(t.deleteCase(caseName));
  }

  // Deletes the rows of each (case, element) the records carry, then appends
  // the records under `caseName`, in one write. A record with an empty element
  // key refuses the list before any database access.
  template <class R, std::size_t K>
  bool SaveResults(const ResultTable<R, K>& t, const char* caseName, std::span<const R> records) const {
    if (!KeyGiven(caseName, t.emptyCase)) return false;
    std::vector<Statement> deletes;
    deletes.reserve(records.size());
    for (const R& r : records) {
      ElementKeys<K> keys;
      for (std::size_t i = 0; i < K; ++i) keys[i] = (r.*t.keys[i]).c_str();
      if (!Given(t, caseName, keys)) return false;
      deletes.push_back(t.deleteOne(caseName, keys));
    }
    return this->Replace(t.saveSteps(), deletes, [&](CDbManage& db) {
      for (R r : records) {
        r.*t.caseName = caseName;
        t.columns.AddRow(db, r);
      }
    });
  }

 private:
  template <class R, std::size_t K>
  static bool Given(const ResultTable<R, K>& t, const char* caseName, const ElementKeys<K>& keys) {
    if (t.emptyCaseOrKey.text) {
      bool all = caseName && *caseName;
      for (const char* k : keys) all = all && k && *k;
      if (!all) t.emptyCaseOrKey.Show();
      return all;
    }
    if (!KeyGiven(caseName, t.emptyCase)) return false;
    for (std::size_t i = 0; i < K; ++i)
      if (t.emptyKeys[i].text && !KeyGiven(keys[i], t.emptyKeys[i])) return false;
    return true;
  }

  // True when the table answers its probe; otherwise shows the delete's
  // table message.
  template <class R, std::size_t K>
  bool Probed(const ResultTable<R, K>& t) const {
    if (this->TableAnswers(t.columns.table())) return true;
    t.deleteTableMissing.Show();
    return false;
  }
};

// The station results of a case (simulated or optimised): one table keyed by
// case and station, its operations named alike in both interfaces.
template <class Interface, class R, const ResultTable<R, 1>& T>
class CStationResultObject : public CResultObject<Interface> {
 public:
  bool LoadStationResult(const char* caseName, const char* station, R& record) override {
    return this->LoadResult(T, caseName, {station}, record);
  }
  bool LoadCaseStationResults(const char* caseName, std::vector<R>& records) override {
    return this->LoadCaseResults(T, caseName, records);
  }
  bool StationResultExists(const char* caseName, const char* station) override {
    return this->ResultExists(T, caseName, {station});
  }
  bool DeleteStationResult(const char* caseName, const char* station) override {
    return this->DeleteResult(T, caseName, {station});
  }
  bool SaveStationResults(const char* caseName, const std::vector<R>& records) override {
    return this->template SaveResults<R, 1>(T, caseName, records);
  }
  bool DeleteStationResults(const char* caseName, const std::vector<std::string>& stations) override {
    return this->DeleteResults(T, caseName, stations);
  }
  bool DeleteCaseStationResults(const char* caseName) override { return this->DeleteCaseResults(T, caseName); }
};

}  // namespace petrodb::network
