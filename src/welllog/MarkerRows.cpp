#include "welllog/MarkerRows.h"

#include "dbaccess/DataObject.h"
#include "dbaccess/RecordLists.h"

namespace petrodb::markers {

bool Load(CDbManage& db, const std::string& statement, Columns columns, std::vector<MarkerRecord>& records) {
  return SelectRecords(db, statement, records, [columns](CDbManage& row, MarkerRecord& r) {
           FieldReader in(row);
           in("WellID", r.WellID)("MarkerName", r.MarkerName)("TopMD", r.TopMD)("BottomMD", r.BottomMD);
           in.Optional("Description", r.Description, std::string());
           if (columns == Columns::All) {
             in.Optional("TopTVD", r.TopTVD, kNullDepth)
                 .Optional("BottomTVD", r.BottomTVD, kNullDepth)
                 .Optional("TopTVDSS", r.TopTVDSS, kNullDepth)
                 .Optional("BottomTVDSS", r.BottomTVDSS, kNullDepth)
                 .Optional("XCoor", r.XCoor, kNullDepth)
                 .Optional("YCoor", r.YCoor, kNullDepth)
                 .Optional("YSDM", r.YSDM, std::string())
                 .Optional("SubmitTime", r.SubmitTime, std::string());
             r.Thickness = r.TopMD == kNullDepth || r.BottomMD == kNullDepth ? kNullDepth : r.BottomMD - r.TopMD;
           }
           return in.ok();
         }) == kRowsFound;
}

void Write(CDbManage& db, const std::string& source, const std::string& wellID, const MarkerRecord& r,
           const DateTime& submitTime) {
  db.AddNew();
  FieldWriter out(db);
  out("Source", source)("WellID", wellID)("MarkerName", r.MarkerName)("Description", r.Description)("TopMD", r.TopMD)(
      "BottomMD", r.BottomMD)("TopTVD", r.TopTVD)("BottomTVD", r.BottomTVD)("TopTVDSS", r.TopTVDSS)(
      "BottomTVDSS", r.BottomTVDSS)("XCoor", r.XCoor)("YCoor", r.YCoor)("YSDM", r.YSDM)("SubmitTime", submitTime);
}

}  // namespace petrodb::markers
