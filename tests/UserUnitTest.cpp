// System parameters, user accounts and organisational unit codes.
#include <algorithm>
#include <tuple>

#include "TestSupport.h"
#include "dbaccess/Schema.h"
#include "petrodb/project/ISysConfig.h"
#include "petrodb/project/IUnitCode.h"
#include "petrodb/project/IUserCode.h"

namespace petrodb::test {
namespace {

using Texts = std::vector<std::string>;

class UserUnitTest : public ProjectTest {
 protected:
  void SetUp() override {
    ProjectTest::SetUp();
    config_ = Make<ISysConfig>("ISysConfig");
    users_ = Make<IUserCode>("IUserCode");
    units_ = Make<IUnitCode>("IUnitCode");
    ASSERT_TRUE(config_ && users_ && units_);
  }
  bool SaveUnit(const char* prefix, const char* name, const char* parentName) {
    return units_->SaveUnitCode(UnitRecord{prefix, name, parentName, "memo"});
  }
  std::unique_ptr<ISysConfig> config_;
  std::unique_ptr<IUserCode> users_;
  std::unique_ptr<IUnitCode> units_;
};

TEST_F(UserUnitTest, SysConfigSaveReplacesTheRow) {
  ASSERT_TRUE(config_->SaveSysConfig(SysConfigRecord{"DEPTH", "depth unit", "int", "m", '1'}));
  ASSERT_TRUE(config_->SaveSysConfig(SysConfigRecord{"DEPTH", "depth unit", "int", "ft", '0'}));
  EXPECT_EQ(Query("select Memo from b_sys_config"), Texts{"ft"});
  SysConfigRecord r;
  ASSERT_TRUE(config_->LoadSysConfig("DEPTH", r));
  EXPECT_EQ(std::tie(r.ParamName, r.Isactive), std::make_tuple("depth unit", '0'));
  EXPECT_TRUE(config_->DeleteSysConfig("DEPTH"));
  EXPECT_FALSE(config_->IsSysConfigExist("DEPTH"));
  // A NULL Isactive cannot be read as a char.
  Exec("insert into b_sys_config (ParamCode, ParamName, ParamType, Memo) values ('X', 'n', 't', 'm')");
  EXPECT_FALSE(config_->LoadSysConfig("X", r));
  EXPECT_TRUE(messages_.texts().empty());
}

TEST_F(UserUnitTest, EmptyKeysAndMissingTablesAreRefusedWithTheirMessages) {
  EXPECT_FALSE(config_->SaveSysConfig(SysConfigRecord{}));
  EXPECT_FALSE(config_->DeleteSysConfig(""));
  Exec("drop table b_sys_config");
  EXPECT_FALSE(config_->SaveSysConfig(SysConfigRecord{"A", "", "", "", '1'}));
  EXPECT_FALSE(config_->DeleteSysConfig("A"));  // silent
  EXPECT_EQ(messages_.texts(), (Texts{"系统参数代码名不能为空！", "系统参数代码名不能为空！", "系统基本参数配置表为空！"}));
  for (const auto& m : messages_.messages()) EXPECT_EQ(std::tie(m.style, m.caption), std::make_tuple(MessageStyle::Plain, "错误信息"));
}

TEST_F(UserUnitTest, UsersWorkThroughTheLoginAlias) {
  ASSERT_TRUE(users_->SaveUser(UserRecord{"zhang", "secret 1", "张三", "rw", "10"}));
  EXPECT_EQ(Query("select UserPwd from b_user_code"), Texts{"secret 1"});  // stored as given
  ASSERT_TRUE(users_->SaveUser(UserRecord{"zhang", "secret 2", "张三", "r", "11"}));
  UserRecord back;
  ASSERT_TRUE(users_->LoadUser("zhang", back));
  EXPECT_EQ(std::tie(back.UserPwd, back.UserName, back.UnitCode), std::make_tuple("secret 2", "张三", "11"));
  sql_.clear();
  EXPECT_TRUE(users_->DeleteUser("zhang"));
  EXPECT_EQ(sql_.texts("ExecuteSQL"), Texts{"delete from b_user_code where UnitLogname = 'zhang'"});
  EXPECT_FALSE(users_->IsUserExist("zhang"));
  EXPECT_EQ(sql_.texts().back(), "select * from b_user_code where UnitLogname = 'zhang'");
  // Without the alias users read as absent and saves fail.
  const std::string file = (dir_ / "plain.mdb").string();
  std::string error;
  ASSERT_TRUE(schema::CreateSqliteFile(schema::WithoutAliases(schema::Builtin()), file, error)) << error;
  users_->SetConnection(("Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + file).c_str());
  EXPECT_FALSE(users_->SaveUser(UserRecord{"li", "pw", "李四", "r", "1"}));  // its delete fails: nothing written
  EXPECT_TRUE(messages_.texts().empty());
  EXPECT_FALSE(users_->IsUserExist("li"));
  UserRecord r;
  EXPECT_FALSE(users_->LoadUser("li", r));
}

TEST_F(UserUnitTest, UnitCodesCountOnUnderAPrefixAndNamesListByParent) {
  ASSERT_TRUE(SaveUnit("1", "company", ""));
  ASSERT_TRUE(SaveUnit("1", "office b", "company"));
  sql_.clear();
  ASSERT_TRUE(SaveUnit("1", "office a", "company"));
  const auto sent = sql_.texts("GetDataFromDB");
  for (const char* text : {"select UnitCode from b_unit_code where UnitCode like '1%'   order by UnitCode desc ",
                           "select UnitCode from b_unit_code where  UnitName ='company'"})
    EXPECT_NE(std::find(sent.begin(), sent.end(), text), sent.end()) << text;
  EXPECT_EQ(Query("select UnitCode || '<' || ParentCode from b_unit_code order by UnitCode"),
            (Texts{"10<", "11<10", "12<10"}));
  // A parent nobody has: silent failure, the begun row is dropped.
  EXPECT_FALSE(SaveUnit("1", "orphan", "nobody"));
  EXPECT_EQ(Query("select count(*) from b_unit_code"), Texts{"3"});
  EXPECT_TRUE(messages_.texts().empty());

  Texts names{"stale"};
  sql_.clear();
  ASSERT_TRUE(units_->GetUnitNames("1", "company", names));
  EXPECT_EQ(names, (Texts{"office a", "office b"}));
  EXPECT_EQ(sql_.texts(), Texts{"select UnitName from b_unit_code where UnitCode like '1%' and ParentCode in ( select "
                                "UnitCode from  b_unit_code where UnitName ='company' ) order by UnitName"});
  ASSERT_TRUE(units_->GetUnitNames("", "", names));
  EXPECT_EQ(names, (Texts{"company", "office a", "office b"}));

  // Longer prefixes drop one character only: under "20" the highest code "20"
  // loses its "2", and atoi("0") + 1 makes "201".
  ASSERT_TRUE(SaveUnit("2", "second", ""));
  ASSERT_TRUE(SaveUnit("20", "child", ""));
  EXPECT_TRUE(units_->IsUnitCodeExist("201"));
}

}  // namespace
}  // namespace petrodb::test
