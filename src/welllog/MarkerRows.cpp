#include "welllog/MarkerRows.h"

namespace petrodb::markers {

namespace {
using M = MarkerRow;
using Text = std::string;
}  // namespace

// Declared in the order of the insert; reading skips the written-only columns.
const ColumnTable<MarkerRow> kColumns{"w_marker", {
    Col<M, Text>("Source", &M::Source).WriteOnly(),
    Col<M, Text>("WellID", &M::WellID),
    Col<M, Text>("MarkerName", &M::MarkerName),
    Col<M, Text>("Description", &M::Description).Or(Text()),
    Col<M, double>("TopMD", &M::TopMD),
    Col<M, double>("BottomMD", &M::BottomMD),
    Col<M, double>("TopTVD", &M::TopTVD).Or(kNullDepth),
    Col<M, double>("BottomTVD", &M::BottomTVD).Or(kNullDepth),
    Col<M, double>("TopTVDSS", &M::TopTVDSS).Or(kNullDepth),
    Col<M, double>("BottomTVDSS", &M::BottomTVDSS).Or(kNullDepth),
    Col<M, double>("XCoor", &M::XCoor).Or(kNullDepth),
    Col<M, double>("YCoor", &M::YCoor).Or(kNullDepth),
    Col<M, Text>("YSDM", &M::YSDM).Or(Text()),
    Col<M, Text>("SubmitTime", &M::SubmitTime).Or(Text()).ReadOnly(),
    Col<M, DateTime>("SubmitTime", &M::Stamp).WriteOnly(),
}};

// The interval alone: the stored table's leading read columns, with the same
// required ones, so a row reads (or fails) as it would in full.
const ColumnTable<MarkerRecord> kIntervalColumns{"w_marker", {
    Col<MarkerRecord, Text>("WellID", &MarkerRecord::WellID),
    Col<MarkerRecord, Text>("MarkerName", &MarkerRecord::MarkerName),
    Col<MarkerRecord, Text>("Description", &MarkerRecord::Description).Or(Text()),
    Col<MarkerRecord, double>("TopMD", &MarkerRecord::TopMD),
    Col<MarkerRecord, double>("BottomMD", &MarkerRecord::BottomMD),
}};

bool ReadStored(const CDbManage& db, MarkerRecord& record) {
  MarkerRow row;
  const bool ok = kColumns.Read(db, row);
  record = std::move(static_cast<MarkerRecord&>(row));
  if (record.TopMD != kNullDepth && record.BottomMD != kNullDepth) record.Thickness = record.BottomMD - record.TopMD;
  return ok;
}

bool ReadInterval(const CDbManage& db, MarkerRecord& record) { return kIntervalColumns.Read(db, record); }

void Write(CDbManage& db, const std::string& source, const std::string& wellID, const MarkerRecord& record,
           const DateTime& stamp) {
  MarkerRow row;
  static_cast<MarkerRecord&>(row) = record;
  row.WellID = wellID;
  row.Source = source;
  row.Stamp = stamp;
  kColumns.AddRow(db, row);
}

}  // namespace petrodb::markers
