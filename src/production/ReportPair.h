#pragma once
// The laboratory report pairs: each kind of report is a header table (one row per
// report, found by a natural key of three texts or by an identifier the database
// numbers) and a data table whose rows point at their header by that identifier.
// A kind configures the two objects below with a struct of its statement
// patterns, its column table, keys and messages; the operations are then the
// same for every kind, and a header class is one line of operations
// (PETRODB_REPORT_HEADER_OPERATIONS) that names them after its kind.
//
// Header object:
//   load one by natural key, a well's, all; the wells that have reports; the well
//   of an identifier; save (update in place when the natural key exists, insert
//   otherwise, then read the identifier back by the natural key); save a list
//   (all or none); delete a report (its rows by identifier first, then the
//   header); delete a well's or all headers (rows stay).
// Data object:
//   joined loads whose select list is generated from the column table
//   ("a.<column>," for each, then "b.WellID from ..." in the class's pattern);
//   append rows; delete a project's rows one identifier at a time.
#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "dbaccess/DataObject.h"

namespace petrodb::laboratory {

inline constexpr Message kEmptyWell = ErrorMessage("井号不能为空！");
inline constexpr Message kSaveFailed = ErrorMessage("保存数据库出错！");

inline std::string_view TextOf(const char* text) { return text ? std::string_view(text) : std::string_view(); }

// What a kind's header object needs beside its statements.
template <class Header>
struct ReportHeaders {
  const ColumnTable<Header>& columns;  // the header table; the identifier read-only
  int Header::*id;
  const char* idColumn;
  std::array<std::string Header::*, 3> key;  // the natural key, in statement order
  Message tableMissing{};                    // shown by a save when the header table answers 2
  Message emptyList{};                       // shown by a list save given no header
};

// `S` holds the kind's statements as patterns: identifier, load and deleteKey
// (the natural key), ofWell and deleteWell (a well), all, wells and deleteAll,
// wellOf, deleteRows and deleteID (an identifier); and update(header), the
// header's values then its natural key. A kind whose list save writes another
// text adds updateInList(header).
template <class Interface, class S, class Header, const ReportHeaders<Header>& K>
class CReportHeader : public CDataObject<Interface> {
 protected:
  bool LoadHeader(const char* key1, const char* key2, const char* key3, Header& header) const {
    return this->LoadOne(S::load(TextOf(key1), TextOf(key2), TextOf(key3)), K.columns, header);
  }
  bool LoadWellHeaders(const char* wellID, std::vector<Header>& headers) const {
    return this->LoadAll(S::ofWell(wellID), K.columns, headers, Fill::Clear).found();
  }
  bool LoadAllHeaders(std::vector<Header>& headers) const {
    return this->LoadAll(S::all(), K.columns, headers, Fill::Clear).found();
  }
  bool ListWells(std::vector<std::string>& wellIDs) const {
    return this->ListColumn(S::wells(), "WellID", wellIDs, Fill::Clear).found();
  }
  bool WellOf(int id, std::string& wellID) const { return this->LoadField(S::wellOf(id), "WellID", wellID); }

  // One transaction: the header is written and its identifier read back, or
  // nothing changes. The identifier reaches the caller's header only on success.
  bool SaveHeader(const char* projectName, Header& header) const {
    if (!KeyGiven(header.WellID, kEmptyWell)) return false;
    int id = 0;
    if (!this->Atomically([&] { return Write(projectName, header, &S::update, id); })) return false;
    header.*K.id = id;
    return true;
  }

  bool SaveHeaderList(const char* projectName, std::vector<Header>& headers) const {
    if (headers.empty()) {
      K.emptyList.Show();
      return false;
    }
    for (const auto& h : headers)
      if (!KeyGiven(h.WellID, kEmptyWell)) return false;
    Statement (*update)(const Header&) = &S::update;
    if constexpr (requires { &S::updateInList; }) update = &S::updateInList;
    std::vector<int> ids(headers.size());
    const bool saved = this->Atomically([&] {
      for (std::size_t i = 0; i < headers.size(); ++i)
        if (!Write(projectName, headers[i], update, ids[i])) return false;
      return true;
    });
    if (!saved) return false;
    for (std::size_t i = 0; i < headers.size(); ++i) headers[i].*K.id = ids[i];
    return true;
  }

  bool DeleteHeader(const Header& header) const {
    const auto h = [&](int i) { return std::string_view(header.*K.key[i]); };
    return DeleteReport(S::deleteRows(header.*K.id), S::deleteKey(h(0), h(1), h(2)));
  }
  bool DeleteHeaderByID(int id) const { return DeleteReport(S::deleteRows(id), S::deleteID(id)); }
  bool DeleteWellHeaders(const char* wellID) const { return this->Execute(S::deleteWell(wellID)); }
  bool DeleteAllHeaders() const { return this->Execute(S::deleteAll()); }

 private:
  // Updates the row of the natural key or inserts one, then reads its identifier.
  bool Write(const char* projectName, const Header& header, Statement (*update)(const Header&), int& id) const {
    const Statement identifier = S::identifier(header.*K.key[0], header.*K.key[1], header.*K.key[2]);
    if (identifier.refused()) return false;  // a key holding a quote: nothing is sent
    if (!this->TableAnswers(K.columns.table())) {
      K.tableMissing.Show();
      return false;
    }
    bool written;
    if (this->Exists(identifier)) {
      written = this->Execute(update(header));
    } else {
      Header stored = header;
      stored.ProjectName = TextOf(projectName);
      written = this->Save(ReplaceSteps{K.columns.table(), Probe::None, {}, kSaveFailed},
                           [&](CDbManage& db) { K.columns.AddRow(db, stored); });
    }
    return written && this->LoadField(identifier, K.idColumn, id);
  }

  // The rows first, then the header; both run whatever the first answers.
  bool DeleteReport(const Statement& rows, const Statement& header) const {
    if (rows.refused() || header.refused()) return false;
    return this->ExecuteAll({rows, header});
  }
};

// The operations of a header interface, named after its kind (`Kind`, plural
// `Kinds`): Load<Kind>, LoadWell<Kinds>, LoadAll<Kinds>, List<Kind>Wells,
// Get<Kind>Well, Save<Kind>, Save<Kinds>, Delete<Kind>, Delete<Kind>ByID,
// DeleteWell<Kinds>, DeleteAll<Kinds>. Place in the class body.
#define PETRODB_REPORT_HEADER_OPERATIONS(Kind, Kinds, Header)                                                \
 public:                                                                                                    \
  bool Load##Kind(const char* key1, const char* key2, const char* key3, Header& header) override {          \
    return this->LoadHeader(key1, key2, key3, header);                                                      \
  }                                                                                                         \
  bool LoadWell##Kinds(const char* wellID, std::vector<Header>& headers) override {                         \
    return this->LoadWellHeaders(wellID, headers);                                                          \
  }                                                                                                         \
  bool LoadAll##Kinds(std::vector<Header>& headers) override { return this->LoadAllHeaders(headers); }      \
  bool List##Kind##Wells(std::vector<std::string>& wellIDs) override { return this->ListWells(wellIDs); }   \
  bool Get##Kind##Well(int id, std::string& wellID) override { return this->WellOf(id, wellID); }           \
  bool Save##Kind(const char* projectName, Header& header) override {                                       \
    return this->SaveHeader(projectName, header);                                                           \
  }                                                                                                         \
  bool Save##Kinds(const char* projectName, std::vector<Header>& headers) override {                        \
    return this->SaveHeaderList(projectName, headers);                                                      \
  }                                                                                                         \
  bool Delete##Kind(const Header& header) override { return this->DeleteHeader(header); }                  \
  bool Delete##Kind##ByID(int id) override { return this->DeleteHeaderByID(id); }                           \
  bool DeleteWell##Kinds(const char* wellID) override { return this->DeleteWellHeaders(wellID); }           \
  bool DeleteAll##Kinds() override { return this->DeleteAllHeaders(); }

template <class Row>
struct ReportRows {
  const ColumnTable<Row>& columns;  // the data table, the identifier first
  Message tableMissing{};           // shown by a save when the data table answers 2
};

// `S` holds projectIDs (a project: the identifiers of its headers) and
// deleteRowsOf (one of those identifiers: its rows).
template <class Interface, class S, class Row, const ReportRows<Row>& K>
class CReportRows : public CDataObject<Interface> {
 protected:
  // The rows a joined select finds, the list emptied first. The pattern takes the
  // generated select list, then `args`.
  template <const auto& P, class... Args>
  bool LoadJoined(std::vector<Row>& rows, const Args&... args) const {
    return this->LoadRows(P(sql::Raw{SelectList()}, args...), rows, Fill::Clear, &ReadRow).found();
  }

  // Appends the rows after probing the data table.
  bool SaveRows(const std::vector<Row>& rows) const {
    return this->Save(ReplaceSteps{K.columns.table(), Probe::First, K.tableMissing, {}},
                      [&](CDbManage& db) { K.columns.AddRows(db, rows); });
  }

  // One delete per identifier the project's headers carry, all or none; true
  // when the project has no header.
  bool DeleteProjectRows(const char* projectName) const {
    std::vector<int> ids;
    const char* idColumn = K.columns.columns().front().name;
    const auto readID = [idColumn](CDbManage& db, int& id) { return db.GetFieldValue(idColumn, id); };
    if (!this->LoadRows(S::projectIDs(projectName), ids, Fill::Clear, readID).ran()) return false;
    return this->Atomically([&] {
      bool ok = true;
      for (const int id : ids) ok = this->Execute(S::deleteRowsOf(id)) && ok;
      return ok;
    });
  }

 private:
  // "a.<column>," for every column, in the declared order.
  static const std::string& SelectList() {
    static const std::string list = [] {
      std::string text;
      for (const auto& c : K.columns.columns()) text.append("a.").append(c.name).append(",");
      return text;
    }();
    return list;
  }

  // The row's columns, then the header's well (empty when the join found none).
  static bool ReadRow(const CDbManage& db, Row& row) {
    if (!K.columns.Read(db, row)) return false;
    if (!db.GetFieldValue("WellID", row.WellID)) row.WellID.clear();
    return true;
  }
};

}  // namespace petrodb::laboratory
