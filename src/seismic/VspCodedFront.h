#pragma once
// Data objects that fix one type code and forward to a general object: each
// call builds the general object on the same connection string and passes the
// code after the project number. Saves write the code into every record, and
// check names with the front's own message where it has one.
//
// `Code` gives `value` (the code, of the general object's type) and `emptyName`
// (the front's message for an empty name; empty: the general object's).
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "dbaccess/DataObject.h"
#include "petrodb/seismic/IVspGeneralData.h"
#include "seismic/CVspHodoGraphData.h"

namespace petrodb::seismic {

template <class Interface, class General, class Code>
class CCodedFront : public CDataObject<Interface> {
 protected:
  // The general object on this connection: the internal one made directly,
  // a catalogued one through the catalogue; null when it cannot be made.
  std::unique_ptr<General> Open() const {
    if constexpr (requires { General::Open(std::string()); })
      return General::Open(this->connectionString);
    else
      return this->template CreateObject<General>(Code::general);
  }

  // `op` of the general object with the project number, the code, then `args`.
  template <class Op, class... A>
  bool Forward(Op op, int projectID, A&&... args) const {
    const auto general = Open();
    return general && std::invoke(op, *general, projectID, Code::value, std::forward<A>(args)...);
  }

  // The records to save, named (when the front has its own message) and coded.
  template <class Record, class Name, class Coded, class SaveFn>
  bool SaveCoded(const std::vector<Record>& records, Name Record::*name, Coded Record::*code, SaveFn save) const {
    if (Code::emptyName.text)
      for (const auto& r : records)
        if (!KeyGiven(r.*name, Code::emptyName)) return false;
    std::vector<Record> coded = records;
    for (auto& r : coded) r.*code = Code::value;
    const auto general = Open();
    return general && std::invoke(save, *general, coded);
  }
};

// Data sets of one type (vsp_general_data through IVspGeneralData).
template <class Interface, class Code>
class CCodedGeneralData : public CCodedFront<Interface, IVspGeneralData, Code> {
  using G = IVspGeneralData;
  using R = VspGeneralRecord;

 public:
  bool GetGeneralNames(int p, std::vector<std::string>& names) override {
    return this->Forward(&G::GetGeneralNames, p, names);
  }
  bool LoadGeneralSets(int p, std::map<std::string, std::vector<double>>& sets) override {
    return this->Forward(&G::LoadGeneralSets, p, sets);
  }
  bool LoadGeneralSet(int p, const char* name, std::vector<double>& data) override {
    return this->Forward(&G::LoadGeneralSet, p, name, data);
  }
  bool SaveGeneralSets(const std::vector<R>& records) override {
    return this->SaveCoded(records, &R::general_name, &R::general_type, &G::SaveGeneralSets);
  }
  bool SaveGeneralSet(const R& record) override {
    return this->SaveCoded(std::vector<R>{record}, &R::general_name, &R::general_type,
                           [](G& g, const std::vector<R>& r) { return g.SaveGeneralSet(r.front()); });
  }
  bool DeleteGeneralType(int p) override { return this->Forward(&G::DeleteGeneralType, p); }
  bool DeleteGeneralSet(int p, const char* name) override { return this->Forward(&G::DeleteGeneralSet, p, name); }
  bool IsGeneralSetExist(int p, const char* name) override { return this->Forward(&G::IsGeneralSetExist, p, name); }
};

// Lines of one type (vsp_hodograph through the internal general object).
template <class Interface, class Code>
class CCodedLineData : public CCodedFront<Interface, CVspHodoGraphData, Code> {
  using G = CVspHodoGraphData;
  using R = VspHodographRecord;

 public:
  bool GetHodographNames(int p, std::vector<std::string>& names) override {
    return this->Forward(&G::GetHodographNames, p, names);
  }
  bool LoadHodographs(int p, std::vector<R>& lines) override { return this->Forward(&G::LoadHodographs, p, lines); }
  bool LoadHodograph(int p, const char* name, R& line) override {
    return this->Forward(&G::LoadHodograph, p, name, line);
  }
  bool SaveHodographs(const std::vector<R>& lines) override {
    return this->SaveCoded(lines, &R::Hg_name, &R::LineDataType, &G::SaveHodographs);
  }
  bool SaveHodograph(const R& line) override {
    return this->SaveCoded(std::vector<R>{line}, &R::Hg_name, &R::LineDataType,
                           [](const G& g, const std::vector<R>& r) { return g.SaveHodograph(r.front()); });
  }
  bool DeleteHodographType(int p) override { return this->Forward(&G::DeleteHodographType, p); }
  bool DeleteHodograph(int p, const char* name) override { return this->Forward(&G::DeleteHodograph, p, name); }
  bool IsHodographExist(int p, const char* name) override { return this->Forward(&G::IsHodographExist, p, name); }
};

}  // namespace petrodb::seismic
