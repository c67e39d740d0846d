#pragma once
// What the reference and analysis tables of the injection network share: a
// replace whose delete must succeed before anything is written (the shape of
// the model catalogues), silent failures except a failed write, and the sixteen
// efficiency values that the stations' analysis table and its view by
// production unit both carry.
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "dbaccess/DataObject.h"
#include "network/NetworkCommon.h"
#include "petrodb/production/ITestEffAnalyseData.h"

namespace petrodb::production {

// A caller's text spliced into a statement as it is (a date literal of the
// database, or a fragment of SQL); a null pointer is the empty text.
inline sql::Raw Spliced(const char* text) { return {text ? text : ""}; }

// Each value formatted by `format` (a printf-style text of one number),
// joined by `separator`: ("%f", ",") gives "62.500000,80.000000". Empty for
// no value.
template <class T>
std::string JoinFormatted(const std::vector<T>& values, std::string_view format, std::string_view separator) {
  std::string text;
  for (const T& v : values) {
    if (!text.empty()) text += separator;
    text += sql::Format(format, v);
  }
  return text;
}

// The sixteen values, in the column order of t_eff_analyse; the view v_sta_unit
// carries the same columns.
inline const ColumnTable<EffAnalyseValues> kEffValueColumns{"t_eff_analyse", {
    Col("Djxl", &EffAnalyseValues::Djxl),
    Col("Zsbxl", &EffAnalyseValues::Zsbxl),
    Col("Gwxl", &EffAnalyseValues::Gwxl),
    Col("Zsxtxl", &EffAnalyseValues::Zsxtxl),
    Col("Zsxtdh", &EffAnalyseValues::Zsxtdh),
    Col("Srgl", &EffAnalyseValues::Srgl),
    Col("Djsh", &EffAnalyseValues::Djsh),
    Col("Zsbsh", &EffAnalyseValues::Zsbsh),
    Col("Jlsh", &EffAnalyseValues::Jlsh),
    Col("Gwsh", &EffAnalyseValues::Gwsh),
    Col("Yxzrnl", &EffAnalyseValues::Yxzrnl),
    Col("Djshbl", &EffAnalyseValues::Djshbl),
    Col("Zsbshbl", &EffAnalyseValues::Zsbshbl),
    Col("Jlshbl", &EffAnalyseValues::Jlshbl),
    Col("Gwshbl", &EffAnalyseValues::Gwshbl),
    Col("Jknlbl", &EffAnalyseValues::Jknlbl),
}};

// A record of the efficiency analysis: its key columns (a table of the record),
// then the values held in its `values` part.
template <class Record>
struct EffAnalyseRow {
  const ColumnTable<Record>& keys;
  bool operator()(const CDbManage& db, Record& record) const {
    return keys.Read(db, record) && kEffValueColumns.Read(db, record.values);
  }
  void AddRow(CDbManage& db, const Record& record) const {
    keys.AddRow(db, record);
    kEffValueColumns.Write(db, record.values);
  }
  template <class Range>
  void AddRows(CDbManage& db, const Range& records) const {
    for (const auto& r : records) AddRow(db, r);
  }
};

template <class Interface>
class CReferenceTable : public CDataObject<Interface> {
 protected:
  // The rows of a statement, the list emptied first; false when there is none
  // or at the first row that cannot be read (the rows before it stay).
  template <class Record, class ReadFn>
  bool LoadList(const Statement& statement, ReadFn&& read, std::vector<Record>& out) const {
    return this->LoadRows(statement, out, Fill::Clear, read).found();
  }
  template <class Record>
  bool LoadList(const Statement& statement, const ColumnTable<Record>& columns, std::vector<Record>& out) const {
    return this->LoadAll(statement, columns, out, Fill::Clear).found();
  }

  // Replaces rows: probes `table` (silently false when it answers 2), runs
  // `remove`, which must succeed (a refused or failing delete ends the save
  // before anything is written), then writes the rows `rows(db)` adds in one
  // save. A failed write shows "保存数据库出错！".
  template <class RowsFn>
  bool ReplaceRows(const char* table, const Statement& remove, RowsFn&& rows) const {
    return this->ReplaceAfter({table, Probe::First, {}, network::kSaveFailed},
                              DeletesThatMustRun(std::span<const Statement>(&remove, 1)), rows);
  }
};

}  // namespace petrodb::production
