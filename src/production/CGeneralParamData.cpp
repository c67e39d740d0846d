#include "petrodb/production/IGeneralParamData.h"
#include "production/ReferenceTables.h"

using namespace petrodb;
using namespace petrodb::production;

namespace {

constexpr Pattern<"select * from general_param_data"> kLoadAll;
constexpr Pattern<"select * from general_param_data where ParamType = %d and ParamKey = '%s'"> kLoad;
constexpr Pattern<"select * from general_param_data where ParamType = %d"> kLoadOfType;
constexpr Pattern<"select * from general_param_data where %s"> kLoadOfTypes;
constexpr Pattern<"delete * from general_param_data where ParamType = %d"> kDeleteOfType;
constexpr Pattern<"delete * from general_param_data where %s"> kDeleteOfTypes;
constexpr Pattern<"delete from general_param_data"> kDeleteAll;

const ColumnTable<GeneralParamRecord> kColumns{"general_param_data", {
    Col("ParamType", &GeneralParamRecord::ParamType),
    Col("ParamKey", &GeneralParamRecord::ParamKey),
    Col("ParamValue", &GeneralParamRecord::ParamValue),
}};

// "ParamType = 1 OR ParamType = 3"; empty for no type.
std::string TypeCondition(const std::vector<int>& types) { return JoinFormatted(types, "ParamType = %d", " OR "); }

}  // namespace

class CGeneralParamData final : public CReferenceTable<IGeneralParamData> {
 public:
  bool LoadAllParams(std::vector<GeneralParamRecord>& params) override {
    return LoadList(kLoadAll(), kColumns, params);
  }
  bool LoadParam(int type, const char* key, GeneralParamRecord& param) override {
    return LoadOne(kLoad(type, key), kColumns, param);
  }
  bool LoadParamsOfType(int type, std::vector<GeneralParamRecord>& params) override {
    return LoadList(kLoadOfType(type), kColumns, params);
  }
  bool LoadParamsOfTypes(const std::vector<int>& types, std::vector<GeneralParamRecord>& params) override {
    return LoadList(kLoadOfTypes(sql::Raw{TypeCondition(types)}), kColumns, params);
  }
  bool ParamExists(int type, const char* key) override { return Exists(kLoad(type, key)); }
  bool SaveParamsOfType(int type, const std::vector<GeneralParamRecord>& params) override {
    return ReplaceRows(kColumns.table(), kDeleteOfType(type), [&](CDbManage& db) {
      for (GeneralParamRecord param : params) {
        param.ParamType = type;
        kColumns.AddRow(db, param);
      }
    });
  }
  bool AppendParams(const std::vector<GeneralParamRecord>& params) override {
    return Append(kColumns.table(), [&](CDbManage& db) { kColumns.AddRows(db, params); });
  }
  bool DeleteParamsOfType(int type) override { return Execute(kDeleteOfType(type)); }
  bool DeleteParamsOfTypes(const std::vector<int>& types) override {
    return Execute(kDeleteOfTypes(sql::Raw{TypeCondition(types)}));
  }
  bool DeleteAllParams() override { return Execute(kDeleteAll()); }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CGeneralParamData, IGeneralParamData)
