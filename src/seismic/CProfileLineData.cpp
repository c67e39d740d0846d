#include "dbaccess/DataObject.h"
#include "petrodb/seismic/IProfileLineData.h"
#include "seismic/SeismicCodecs.h"

using namespace petrodb;

namespace {

constexpr Pattern<"select Profile_Name from b_profileLine_data where Profile_Type = %d order by Profile_Name">
    kProfileNames;
constexpr Pattern<"select * from b_profileLine_data where Profile_Name = '%s' and Profile_Type = %d"> kLoadProfile;
constexpr Pattern<"select * from b_profileLine_data where Profile_Type = %d order by Profile_Name"> kLoadOfType;
constexpr Pattern<"select * from b_profileLine_data order by Profile_Type, Profile_Name"> kLoadAll;
constexpr Pattern<"delete from  b_profileLine_data where Profile_Name='%s' and Profile_Type = %d"> kBatchDelete;
constexpr Pattern<"delete from b_profileLine_data where Profile_Name= '%s' and Profile_Type = %d"> kDeleteProfile;
constexpr Pattern<"delete from  b_profileLine_data where Profile_Type = %d"> kDeleteOfType;
constexpr Pattern<"delete from  b_profileLine_data"> kDeleteAll;

constexpr const char* kTable = "b_profileLine_data";

// The stored row: points and wells as their texts.
struct ProfileRow {
  std::string Profile_Name;
  int Profile_Type = 0;
  std::string Profile_Line;
  std::string Profile_WellList;
};
const ColumnTable<ProfileRow> kColumns{kTable, {
    Col("Profile_Name", &ProfileRow::Profile_Name),
    Col("Profile_Type", &ProfileRow::Profile_Type),
    Col("Profile_Line", &ProfileRow::Profile_Line),
    Col("Profile_WellList", &ProfileRow::Profile_WellList),
}};

ProfileRow ToRow(const ProfileLineRecord& p) {
  return {p.Profile_Name, p.Profile_Type, seismic::EncodeProfilePoints(p.X, p.Y), seismic::JoinNames(p.WellList)};
}

// A row into a record whose points and wells are appended to.
bool ReadProfile(const CDbManage& db, ProfileLineRecord& profile) {
  ProfileRow row;
  if (!kColumns.Read(db, row)) return false;
  profile.Profile_Name = row.Profile_Name;
  profile.Profile_Type = row.Profile_Type;
  seismic::DecodeProfilePoints(row.Profile_Line, profile.X, profile.Y);
  seismic::SplitNames(row.Profile_WellList, profile.WellList);
  return true;
}

constexpr Message kEmptyName = AppMessage("剖面名称不能为空！");
constexpr Message kNoWells = AppMessage("井名组合不能为空！");

}  // namespace

class CProfileLineData final : public CDataObject<IProfileLineData> {
 public:
  bool GetProfileNames(int type, std::vector<std::string>& names) override {
    return ListColumn(kProfileNames(type), "Profile_Name", names, Fill::Append).ran();
  }

  bool LoadProfile(const char* name, int type, ProfileLineRecord& profile) override {
    return LoadOneWith(kLoadProfile(name, type), ReadProfile, profile);
  }

  bool LoadProfilesOfType(int type, std::vector<ProfileLineRecord>& profiles) override {
    return LoadRows(kLoadOfType(type), profiles, Fill::Append, ReadProfile).ran();
  }

  bool LoadAllProfiles(std::vector<ProfileLineRecord>& profiles) override {
    return LoadRows(kLoadAll(), profiles, Fill::Append, ReadProfile).ran();
  }

  bool SaveProfile(const ProfileLineRecord& profile) override {
    if (!KeyGiven(profile.Profile_Name, kEmptyName)) return false;
    if (profile.WellList.empty()) {
      kNoWells.Show();
      return false;
    }
    if (kDeleteProfile(profile.Profile_Name, profile.Profile_Type).refused()) return false;
    return ReplaceAfter(ReplaceSteps{kTable},
                        Regardless([&] { DeleteProfile(profile.Profile_Name.c_str(), profile.Profile_Type); }),
                        [&](CDbManage& db) { kColumns.AddRow(db, ToRow(profile)); });
  }

  bool SaveProfiles(const std::vector<ProfileLineRecord>& profiles) override {
    std::vector<Statement> deletes;
    for (const auto& p : profiles) deletes.push_back(kBatchDelete(p.Profile_Name, p.Profile_Type));
    return Replace(ReplaceSteps{kTable}, deletes, [&](CDbManage& db) {
      for (const auto& p : profiles) kColumns.AddRow(db, ToRow(p));
    });
  }

  bool DeleteProfile(const char* name, int type) override {
    return KeyGiven(name, kEmptyName) && ExecuteOnTable(kTable, kDeleteProfile(name, type));
  }

  bool DeleteProfilesOfType(int type) override { return ExecuteOnTable(kTable, kDeleteOfType(type)); }

  bool DeleteAllProfiles() override { return ExecuteOnTable(kTable, kDeleteAll()); }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CProfileLineData, IProfileLineData)
