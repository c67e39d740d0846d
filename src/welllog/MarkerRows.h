#pragma once
// Reading and writing rows of w_marker, shared by the geological-layering view
// and the general marker reader and writer.
#include <string>
#include <vector>

#include "dbaccess/DbManage.h"
#include "petrodb/DateTime.h"
#include "petrodb/welllog/IMarkerData.h"

namespace petrodb::markers {

enum class Columns {
  Interval,  // WellID, MarkerName, TopMD, BottomMD, Description
  All,       // every stored column; derived values default to -99999.0
};

// Appends the rows of `statement` to `records`; true when it returned rows and
// each row's required columns were read.
bool Load(CDbManage& db, const std::string& statement, Columns columns, std::vector<MarkerRecord>& records);
// Adds one row of `source` for the well (BeginSaveData must have been called).
void Write(CDbManage& db, const std::string& source, const std::string& wellID, const MarkerRecord& record,
           const DateTime& submitTime);

}  // namespace petrodb::markers
