#pragma once
// User accounts: one row per login name in b_user_code. The password is
// stored and read as the text given; nothing here hashes or checks it.
//
// The existence test and the delete match the login name through the column
// "UnitLogname"; project files made by this library carry it as a second name
// of UserLogname. On a file without it both statements fail: every user then
// reads as absent, and SaveUser fails before writing anything.
#include <string>

#include "petrodb/IDataBase.h"

struct UserRecord {
  std::string UserLogname;  // key
  std::string UserPwd;
  std::string UserName;
  std::string UserRights;
  std::string UnitCode;  // the user's unit in b_unit_code
};

class PETRODB_API IUserCode : public IDataBase {
 public:
  virtual bool LoadUser(const char* logname, UserRecord& record) = 0;
  virtual bool IsUserExist(const char* logname) = 0;
  // Replaces the user's row. An empty login name or a missing table is
  // refused with a message; a failed delete fails silently.
  virtual bool SaveUser(const UserRecord& record) = 0;
  virtual bool DeleteUser(const char* logname) = 0;
};
