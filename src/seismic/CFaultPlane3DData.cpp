#include "dbaccess/DataObject.h"
#include "petrodb/seismic/IFaultPlane3DData.h"

using namespace petrodb;

namespace {

constexpr Pattern<"select * from fault_plane3d_data where ModelingName = '%s' and FaultName = '%s'"> kLoadPlane;
constexpr Pattern<"delete from fault_plane3d_data where ModelingName = '%s' and FaultName = '%s'"> kDeletePlane;
// Misspelt: no engine runs it, so a batch save adds rows beside the old ones.
constexpr Pattern<"delect from fault_plane3d_data where ModelingName = '%s' and FaultName = '%s'"> kBatchDelete;
constexpr Pattern<"select * from fault_plane3d_data where ModelingName = '%s' and FaultName in (%s)"> kLoadPlanes;
constexpr Pattern<"select fault_plane3d_data.FaultName from fault_plane3d_data where ModelingName = '%s' and "
                  "FaultName in (%s)">
    kExisting;

const ColumnTable<FaultPlaneStyle> kColumns{"fault_plane3d_data", {
    Col("ModelingName", &FaultPlaneStyle::ModelingName),
    Col("FaultName", &FaultPlaneStyle::FaultName),
    Col("KeyPillarType", &FaultPlaneStyle::KeyPillarType),
    Col("IsContourShow", &FaultPlaneStyle::IsContourShow),
    Col("ContourProp", &FaultPlaneStyle::ContourProp),
    Col("IsShapePointShow", &FaultPlaneStyle::IsShapePointShow),
    Col("ShapeStyle", &FaultPlaneStyle::ShapeStyle),
    Col("ShapeSize", &FaultPlaneStyle::ShapeSize),
    Col("ShapeMaterial", &FaultPlaneStyle::ShapeMaterial),
    Col("IsPillarShow", &FaultPlaneStyle::IsPillarShow),
    Col("PillarStyle", &FaultPlaneStyle::PillarStyle),
    Col("PillarSize", &FaultPlaneStyle::PillarSize),
    Col("PillarMaterial", &FaultPlaneStyle::PillarMaterial),
    Col("IsLineBetweenShow", &FaultPlaneStyle::IsLineBetweenShow),
    Col("ShowInStraightLine", &FaultPlaneStyle::ShowInStraightLine),
    Col("SmoothPointsNum", &FaultPlaneStyle::SmoothPointsNum),
    Col("LineStyle", &FaultPlaneStyle::LineStyle),
    Col("LineSize", &FaultPlaneStyle::LineSize),
    Col("LineDisplayNum", &FaultPlaneStyle::LineDisplayNum),
    Col("FaultFillType", &FaultPlaneStyle::FaultFillType),
    Col("FaultFillMaterial", &FaultPlaneStyle::FaultFillMaterial),
    Col("Transparency", &FaultPlaneStyle::Transparency),
}};

constexpr Message kEmptyNames = AppMessage("建模名称和断层名称不能为空！");

bool NamesGiven(const std::string& modeling, const std::string& fault) {
  return KeyGiven(modeling, kEmptyNames) && KeyGiven(fault, kEmptyNames);
}

}  // namespace

class CFaultPlane3DData final : public CDataObject<IFaultPlane3DData> {
 public:
  bool LoadFaultPlane(const char* modeling, const char* fault, FaultPlaneStyle& style) override {
    return LoadOne(kLoadPlane(modeling, fault), kColumns, style);
  }

  bool SaveFaultPlane(const FaultPlaneStyle& style) override {
    if (!NamesGiven(style.ModelingName, style.FaultName)) return false;
    return Replace(ReplaceSteps{kColumns.table()}, kDeletePlane(style.ModelingName, style.FaultName),
                   [&](CDbManage& db) { kColumns.AddRow(db, style); });
  }

  bool IsFaultPlaneExist(const char* modeling, const char* fault) override {
    return NamesGiven(modeling ? modeling : "", fault ? fault : "") && Exists(kLoadPlane(modeling, fault));
  }

  bool LoadFaultPlanes(const char* modeling, const std::vector<std::string>& faults,
                       std::vector<FaultPlaneStyle>& styles) override {
    return LoadAll(kLoadPlanes(modeling, sql::QuoteEach(faults)), kColumns, styles, Fill::Clear).ran();
  }

  bool SaveFaultPlanes(const std::vector<FaultPlaneStyle>& styles) override {
    std::vector<Statement> deletes;
    for (const auto& s : styles) deletes.push_back(kBatchDelete(s.ModelingName, s.FaultName));
    return Replace(ReplaceSteps{kColumns.table()}, deletes, [&](CDbManage& db) { kColumns.AddRows(db, styles); });
  }

  bool GetExistingFaultPlanes(const char* modeling, const std::vector<std::string>& faults,
                              std::vector<std::string>& existing) override {
    return ListColumn(kExisting(modeling, sql::QuoteEach(faults)), "FaultName", existing, Fill::Clear).ran();
  }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CFaultPlane3DData, IFaultPlane3DData)
