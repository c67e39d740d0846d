#include "dbaccess/DataObject.h"
#include "petrodb/seismic/IEarthShockBodyData.h"

using namespace petrodb;

namespace {

constexpr const char* kTable = "b_earthshockbody_data";

constexpr Pattern<"select * from b_earthshockbody_data"> kLoad;
constexpr Pattern<"delete from b_earthshockbody_data"> kClear;

const ColumnTable<ShockBodyPoint> kPointColumns{kTable, {
    Col("LineNumber", &ShockBodyPoint::LineNumber),
    Col("CDPNumber", &ShockBodyPoint::CDPNumber),
    Col("X", &ShockBodyPoint::X),
    Col("Y", &ShockBodyPoint::Y),
}};

}  // namespace

class CEarthShockBodyData final : public CDataObject<IEarthShockBodyData> {
 public:
  bool LoadShockBody(std::vector<ShockBodyPoint>& points) override {
    return LoadAll(kLoad(), kPointColumns, points, Fill::Clear).found();
  }
  bool SaveShockBody(const std::vector<ShockBodyPoint>& points) override {
    return Save(ReplaceSteps{kTable}, [&](CDbManage& db) { kPointColumns.AddRows(db, points); });
  }
  bool ClearShockBody() override { return ExecuteOnTable(kTable, kClear()); }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CEarthShockBodyData, IEarthShockBodyData)
