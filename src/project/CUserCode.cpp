#include "petrodb/project/IUserCode.h"
#include "project/ProjectData.h"

using namespace petrodb;

namespace {

// The existence test and the delete name the login column "UnitLogname".
constexpr Pattern<"select * from b_user_code where UserLogname = '%s'"> kLoadUser;
constexpr Pattern<"select * from b_user_code where UnitLogname = '%s'"> kUserExists;
constexpr Pattern<"delete from b_user_code where UnitLogname = '%s'"> kDeleteUser;

const ColumnTable<UserRecord> kUserColumns{"b_user_code", {
    Col("UserLogname", &UserRecord::UserLogname),
    Col("UserPwd", &UserRecord::UserPwd),
    Col("UserName", &UserRecord::UserName),
    Col("UserRights", &UserRecord::UserRights),
    Col("UnitCode", &UserRecord::UnitCode),
}};

constexpr CodeTable kUsers = CodeTableOf("b_user_code", "用户登录名不能为空！", "用户代码表为空！");

}  // namespace

class CUserCode final : public ProjectDataObject<IUserCode> {
 public:
  bool LoadUser(const char* logname, UserRecord& record) override {
    return LoadOne(kLoadUser(logname), kUserColumns, record);
  }

  bool IsUserExist(const char* logname) override { return ExistsInTable(kUsers.save.table, kUserExists(logname)); }

  bool SaveUser(const UserRecord& record) override {
    const char* logname = record.UserLogname.c_str();
    return SaveCodeRow(kUsers, logname, [&] { return DeleteUser(logname); }, kUserColumns, record);
  }

  bool DeleteUser(const char* logname) override { return DeleteCodeRow(kUsers, logname, kDeleteUser(logname)); }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CUserCode, IUserCode)
