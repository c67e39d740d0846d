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

// The interval alone: the leading read columns, the same required ones among
// them, so a row reads (or fails) as it would in full.
const ColumnTable<MarkerRow> kIntervalColumns(kColumns, {"WellID", "MarkerName", "Description", "TopMD", "BottomMD"});

bool ReadStored(const CDbManage& db, MarkerRecord& record) {
  const bool ok = ReadAs<MarkerRecord>(kColumns)(db, record);
  if (record.TopMD != kNullDepth && record.BottomMD != kNullDepth) record.Thickness = record.BottomMD - record.TopMD;
  return ok;
}

bool ReadInterval(const CDbManage& db, MarkerRecord& record) {
  return ReadAs<MarkerRecord>(kIntervalColumns)(db, record);
}

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
