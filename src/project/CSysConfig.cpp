#include "petrodb/project/ISysConfig.h"
#include "project/ProjectData.h"

using namespace petrodb;

namespace {

constexpr Pattern<"select * from b_sys_config where ParamCode = '%s'"> kLoadParam;
constexpr Pattern<"delete from b_sys_config where ParamCode = '%s'"> kDeleteParam;

const ColumnTable<SysConfigRecord> kParamColumns{"b_sys_config", {
    Col("ParamCode", &SysConfigRecord::ParamCode),
    Col("ParamName", &SysConfigRecord::ParamName),
    Col("ParamType", &SysConfigRecord::ParamType),
    Col("Memo", &SysConfigRecord::Memo),
    Col("Isactive", &SysConfigRecord::Isactive),
}};

constexpr CodeTable kParams = CodeTableOf("b_sys_config", "系统参数代码名不能为空！", "系统基本参数配置表为空！");

}  // namespace

class CSysConfig final : public ProjectDataObject<ISysConfig> {
 public:
  bool LoadSysConfig(const char* paramCode, SysConfigRecord& record) override {
    return LoadOne(kLoadParam(paramCode), kParamColumns, record);
  }

  bool IsSysConfigExist(const char* paramCode) override {
    return ExistsInTable(kParams.save.table, kLoadParam(paramCode));
  }

  bool SaveSysConfig(const SysConfigRecord& record) override {
    const char* code = record.ParamCode.c_str();
    return SaveCodeRow(kParams, code, [&] { return DeleteSysConfig(code); }, kParamColumns, record);
  }

  bool DeleteSysConfig(const char* paramCode) override {
    return DeleteCodeRow(kParams, paramCode, kDeleteParam(paramCode));
  }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CSysConfig, ISysConfig)
