#pragma once
// Rows of w_marker, shared by the geological-layering view and the general
// marker reader and writer: one column table drives reading and writing.
#include <string>

#include "dbaccess/DataObject.h"
#include "petrodb/DateTime.h"
#include "petrodb/welllog/IMarkerData.h"

namespace petrodb::markers {

// A stored row: the marker with the source it belongs to and the time it was
// written (the record's own SubmitTime is what a load reads back).
struct MarkerRow : MarkerRecord {
  std::string Source;
  DateTime Stamp;
};

extern const ColumnTable<MarkerRow> kColumns;

// Every stored column of a row; a derived column that cannot be read is
// -99999.0 (texts empty), and the thickness is worked out from the depths.
bool ReadStored(const CDbManage& db, MarkerRecord& record);
// The interval of a row only (WellID, MarkerName, TopMD, BottomMD,
// Description); the derived values keep their defaults.
bool ReadInterval(const CDbManage& db, MarkerRecord& record);
// Adds one row of `source` for the well (after BeginSaveData).
void Write(CDbManage& db, const std::string& source, const std::string& wellID, const MarkerRecord& record,
           const DateTime& stamp);

}  // namespace petrodb::markers
