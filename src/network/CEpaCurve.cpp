#include "network/NetworkCommon.h"
#include "petrodb/network/IEpaCurve.h"

using namespace petrodb;
using namespace petrodb::network;

namespace {

constexpr Pattern<"select CurveID from b_curve where Device_Model='%s' order by CurveID"> kListOfDevice;
constexpr Pattern<"select CurveType,CurveXY from b_curve where CurveID='%s'"> kLoadCurve;
constexpr Pattern<"select CurveID, CurveType,CurveXY from b_curve where CurveID in (%s)"> kLoadCurves;
constexpr Pattern<"select CurveID,CurveType,CurveXY from b_curve where CurveID in (%s)"> kLoadCurvesById;
constexpr Pattern<"select CurveID from b_curve where CurveType =%d order by CurveID"> kListOfType;
constexpr Pattern<"select CurveID, CurveXY from b_curve where CurveType =%d"> kLoadOfType;
constexpr Pattern<"select CurveID from  b_curve where CurveID='%s'"> kCurveExists;
constexpr Pattern<"delete from b_curve where CurveID='%s'"> kDeleteCurve;
constexpr Pattern<"delete * from b_curve"> kDeleteAll;

constexpr const char* kTable = "b_curve";

// The selects name the columns they read; each reads those of this table.
const ColumnTable<CurveRecord> kCurveColumns{kTable, {
    Col("CurveID", &CurveRecord::CurveID),
    Col("Device_Model", &CurveRecord::Device_Model),
    Col("CurveType", &CurveRecord::CurveType),
    Col("CurveXY", &CurveRecord::CurveXY),
}};

constexpr Message kEmptyId = ErrorMessage("曲线ID不能为空！");
constexpr bool kArrays = true;

}  // namespace

class CEpaCurve final : public CDataObject<IEpaCurve> {
 public:
  bool ListCurveIdsOfDevice(const char* deviceModel, std::vector<std::string>& ids) override {
    return ListColumn(kListOfDevice(deviceModel), "CurveID", ids, Fill::Clear).found();
  }

  bool LoadCurve(const char* id, CurveRecord& curve) override {
    return LoadOneWith(kLoadCurve(id), Selected(kCurveColumns, {"CurveType", "CurveXY"}), curve, kArrays);
  }

  bool LoadCurves(const std::vector<std::string>& ids, CurveMap& curves) override {
    return Curves(kLoadCurves(sql::QuoteEach(ids)), {"CurveID", "CurveType", "CurveXY"}, curves);
  }
  bool LoadCurvesById(const std::vector<std::string>& ids, CurveMap& curves) override {
    return Curves(kLoadCurvesById(sql::QuoteEach(ids)), {"CurveID", "CurveType", "CurveXY"}, curves);
  }
  bool ListCurveIdsOfType(int curveType, std::vector<std::string>& ids) override {
    return ListColumn(kListOfType(curveType), "CurveID", ids, Fill::Clear).found();
  }
  bool LoadCurvesOfType(int curveType, CurveMap& curves) override {
    const bool found = Curves(kLoadOfType(curveType), {"CurveID", "CurveXY"}, curves);
    for (auto& [id, curve] : curves) curve.CurveType = curveType;
    return found;
  }
  bool CurveExists(const char* id) override { return Exists(kCurveExists(id)); }

  bool SaveCurves(const char* deviceModel, const CurveMap& curves) override {
    for (const auto& [id, curve] : curves)
      if (!KeyGiven(id, kEmptyId)) return false;
    return Append(kTable, [&](CDbManage& db) {
      for (const auto& [id, curve] : curves) AddCurve(db, id, deviceModel, curve);
    });
  }
  bool SaveCurve(const char* deviceModel, const CurveRecord& curve) override {
    if (!KeyGiven(curve.CurveID, kEmptyId)) return false;
    return Append(kTable, [&](CDbManage& db) { AddCurve(db, curve.CurveID, deviceModel, curve); });
  }

  bool DeleteCurve(const char* id) override { return Execute(kDeleteCurve(id)); }
  bool DeleteAllCurves() override { return Execute(kDeleteAll()); }
  PETRODB_DATA_CLASS

 private:
  static void AddCurve(CDbManage& db, const std::string& id, const char* deviceModel, const CurveRecord& curve) {
    CurveRecord row = curve;
    row.CurveID = id;
    row.Device_Model = deviceModel ? deviceModel : "";
    kCurveColumns.AddRow(db, row);
  }

  // The curves the statement selects, by identifier; the map is emptied first.
  bool Curves(const Statement& statement, std::initializer_list<std::string_view> columns, CurveMap& curves) const {
    curves.clear();
    std::vector<CurveRecord> rows;
    const bool found = LoadRows(statement, rows, Fill::Clear, Selected(kCurveColumns, columns), kArrays).found();
    for (auto& row : rows) curves.insert_or_assign(row.CurveID, std::move(row));
    return found;
  }
};

PETRODB_REGISTER_CLASS(CEpaCurve, IEpaCurve)
