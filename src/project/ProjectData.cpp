#include "project/ProjectData.h"

namespace petrodb {

const ColumnTable<Membership> kMembershipColumns{"w_groupwell", {
    Col("GroupID", &Membership::GroupID),
    Col("WellID", &Membership::WellID),
}};

bool ReadDisplayName(const CDbManage& db, const char* nameColumn, const char* idColumn, std::string& name) {
  std::string id;
  if (!db.GetFieldValue(nameColumn, name) || !db.GetFieldValue(idColumn, id)) return false;
  if (name.empty()) name = id;
  return true;
}

}  // namespace petrodb
