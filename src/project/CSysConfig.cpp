#include "dbaccess/CodeTable.h"
#include "petrodb/project/ISysConfig.h"

using petrodb::FieldReader;
using petrodb::FieldWriter;
using petrodb::sql::Format;

class CSysConfig final : public petrodb::CDataObject<ISysConfig> {
 public:
  bool LoadSysConfig(const char* paramCode, SysConfigRecord& record) override;
  bool IsSysConfigExist(const char* paramCode) override;
  bool SaveSysConfig(const SysConfigRecord& record) override;
  bool DeleteSysConfig(const char* paramCode) override;
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CSysConfig, ISysConfig)

namespace {
const petrodb::CodeTable kTable{"b_sys_config", "系统参数代码名不能为空！", "系统基本参数配置表为空！"};

std::string SelectStatement(const char* code) {
  return Format("select * from b_sys_config where ParamCode = '%s'", code);
}
}  // namespace

bool CSysConfig::LoadSysConfig(const char* paramCode, SysConfigRecord& r) {
  CDbManage db(connectionString.c_str());
  if (db.GetDataFromDB(SelectStatement(paramCode).c_str()) != kRowsFound) return false;
  return FieldReader{db}("ParamCode", r.ParamCode)("ParamName", r.ParamName)("ParamType", r.ParamType)(
             "Memo", r.Memo)("Isactive", r.Isactive)
      .ok();
}

bool CSysConfig::IsSysConfigExist(const char* paramCode) {
  return petrodb::CodeRowExists(connectionString, kTable, SelectStatement(paramCode));
}

bool CSysConfig::SaveSysConfig(const SysConfigRecord& r) {
  return petrodb::SaveCodeRow(
      connectionString, kTable, r.ParamCode, [&] { return DeleteSysConfig(r.ParamCode.c_str()); },
      [&](CDbManage& db) {
        FieldWriter{db}("ParamCode", r.ParamCode)("ParamName", r.ParamName)("ParamType", r.ParamType)(
            "Memo", r.Memo)("Isactive", r.Isactive);
        return true;
      });
}

bool CSysConfig::DeleteSysConfig(const char* paramCode) {
  const std::string code = paramCode ? paramCode : "";
  return petrodb::DeleteCodeRow(connectionString, kTable, code,
                                Format("delete from b_sys_config where ParamCode = '%s'", code));
}
