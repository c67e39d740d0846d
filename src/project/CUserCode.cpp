#include "dbaccess/CodeTable.h"
#include "petrodb/project/IUserCode.h"

using petrodb::FieldReader;
using petrodb::FieldWriter;
using petrodb::sql::Format;

class CUserCode final : public petrodb::CDataObject<IUserCode> {
 public:
  bool LoadUser(const char* logname, UserRecord& record) override;
  bool IsUserExist(const char* logname) override;
  bool SaveUser(const UserRecord& record) override;
  bool DeleteUser(const char* logname) override;
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CUserCode, IUserCode)

namespace {
const petrodb::CodeTable kTable{"b_user_code", "用户登录名不能为空！", "用户代码表为空！"};
}  // namespace

bool CUserCode::LoadUser(const char* logname, UserRecord& r) {
  CDbManage db(connectionString.c_str());
  if (db.GetDataFromDB(Format("select * from b_user_code where UserLogname = '%s'", logname).c_str()) != kRowsFound)
    return false;
  return FieldReader{db}("UserLogname", r.UserLogname)("UserPwd", r.UserPwd)("UserName", r.UserName)(
             "UserRights", r.UserRights)("UnitCode", r.UnitCode)
      .ok();
}

// The existence test and the delete match the login through "UnitLogname".
bool CUserCode::IsUserExist(const char* logname) {
  return petrodb::CodeRowExists(connectionString, kTable,
                                Format("select * from b_user_code where UnitLogname = '%s'", logname));
}

bool CUserCode::SaveUser(const UserRecord& r) {
  return petrodb::SaveCodeRow(
      connectionString, kTable, r.UserLogname, [&] { return DeleteUser(r.UserLogname.c_str()); },
      [&](CDbManage& db) {
        FieldWriter{db}("UserLogname", r.UserLogname)("UserPwd", r.UserPwd)("UserName", r.UserName)(
            "UserRights", r.UserRights)("UnitCode", r.UnitCode);
        return true;
      });
}

bool CUserCode::DeleteUser(const char* logname) {
  const std::string name = logname ? logname : "";
  return petrodb::DeleteCodeRow(connectionString, kTable, name,
                                Format("delete from b_user_code where UnitLogname = '%s'", name));
}
