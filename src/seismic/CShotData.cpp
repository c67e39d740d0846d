#include <map>
#include <string>
#include <vector>

#include "petrodb/seismic/IShotData.h"
#include "welllog/WellDetailRows.h"

using namespace petrodb;
using welllog::CWellDetailData;
using welllog::kEmptyProject;
using welllog::WellDetailLayout;

namespace {

struct ShotStatements {
  static constexpr Pattern<"select w_well_data.wellid from w_well_data where w_well_data.ProjectName = '%s' and "
                           "exists( select w_shot_data.wellid from w_shot_data where w_well_data.wellid = "
                           "w_shot_data.wellid )  order by w_well_data.wellid ">
      wellsOfProject{};
  static constexpr Pattern<"select * from w_shot_data where WellID='%s'"> loadWell{};
  static constexpr Pattern<"select WellID from  w_shot_data where WellID in (%s)"> wellsWithRows{};
  static constexpr Pattern<"delete from  w_shot_data where WellID='%s'"> deleteWell{};
  static constexpr Pattern<"delete from  w_shot_data where WellID in (%s)"> deleteWells{};
  static constexpr Pattern<"delete from w_shot_data where exists( select * from w_well_data where "
                           "w_well_data.wellid = w_shot_data.wellid and  w_well_data.ProjectName = '%s' )">
      deleteProject{};
  static constexpr Pattern<"select * from  w_shot_data where WellID='%s'"> wellHasRows{};
};

// The row after its well: loads read these, saves write the well's ID first.
const ColumnTable<ShotRecord> kShotColumns{"w_shot_data", {
    Col("ShotDate", &ShotRecord::ShotDate),
    Col("TopDepth", &ShotRecord::TopDepth),
    Col("BottomDepth", &ShotRecord::BottomDepth),
    Col("XH", &ShotRecord::XH),
    Col("LayerNum", &ShotRecord::LayerNum),
    Col("Thickness", &ShotRecord::Thickness),
    Col("Method", &ShotRecord::Method),
    Col("GunType", &ShotRecord::GunType),
    Col("BulletType", &ShotRecord::BulletType),
    Col("Density", &ShotRecord::Density),
    Col("ShotRate", &ShotRecord::ShotRate),
    Col("WJYMC", &ShotRecord::WJYMC),
    Col("WJYMD", &ShotRecord::WJYMD),
    Col("JSXH", &ShotRecord::JSXH),
    Col("LayerType", &ShotRecord::LayerType),
    Col("Description", &ShotRecord::Description),
}};

struct WellShots {
  std::string WellID;
  std::vector<ShotRecord> Shots;
};

const WellDetailLayout<WellShots, ShotRecord> kLayout{"w_shot_data", &WellShots::Shots, &kShotColumns};

// The per-well detail layout's operations, which the shots reach under their
// own names.
class IShotRows : public IShotData {
 public:
  virtual bool GetCoredWellIDs(const char* projectName, std::vector<std::string>& wellIDs) = 0;
  virtual bool LoadWellCores(const char* wellID, WellShots& well) = 0;
  virtual bool LoadProjectCores(const char* projectName, std::vector<WellShots>& wells) = 0;
  virtual bool GetWellsWithCores(const std::vector<std::string>& wellIDs, std::vector<std::string>& found) = 0;
  virtual bool SaveWellCores(const WellShots& well) = 0;
  virtual bool SaveCoresOfWells(int, const std::vector<WellShots>& wells) = 0;
  virtual bool DeleteWellCores(const char* wellID) = 0;
  virtual bool DeleteCoresOfWells(const std::vector<std::string>& wellIDs) = 0;
  virtual bool DeleteProjectCores(const char* projectName) = 0;
  virtual bool IsWellCoresExist(const char* wellID) = 0;
};

}  // namespace

class CShotData final : public CWellDetailData<IShotRows, ShotStatements, WellShots, ShotRecord, kLayout> {
 public:
  bool GetShotWells(const char* project, std::vector<std::string>& wellIDs) override {
    return GetCoredWellIDs(project, wellIDs);
  }

  bool LoadWellShots(const char* wellID, std::vector<ShotRecord>& shots) override {
    WellShots well;
    const bool found = LoadWellCores(wellID, well);
    shots = std::move(well.Shots);
    return found;
  }

  bool LoadProjectShots(const char* project, std::map<std::string, std::vector<ShotRecord>>& shots) override {
    shots.clear();
    std::vector<WellShots> wells;
    const bool found = LoadProjectCores(project, wells);
    for (auto& well : wells) shots[well.WellID] = std::move(well.Shots);
    return found;
  }

  bool GetWellsWithShots(const std::vector<std::string>& wellIDs, std::vector<std::string>& existing) override {
    return GetWellsWithCores(wellIDs, existing);
  }

  bool SaveWellShots(const char* wellID, const std::vector<ShotRecord>& shots) override {
    return SaveWellCores(WellShots{wellID ? wellID : "", shots});
  }

  // Appends every well's rows after a probe of the table; nothing is deleted.
  bool SaveShots(const std::map<std::string, std::vector<ShotRecord>>& shots) override {
    return Save(ReplaceSteps{kLayout.table}, [&](CDbManage& db) {
      for (const auto& [wellID, rows] : shots)
        for (const auto& row : rows) kShotColumns.AddKeyedRow(db, "WellID", wellID, row);
    });
  }

  bool DeleteWellShots(const char* wellID) override { return DeleteWellCores(wellID); }
  bool DeleteWellsShots(const std::vector<std::string>& wellIDs) override { return DeleteCoresOfWells(wellIDs); }
  bool DeleteProjectShots(const char* project) override {
    return KeyGiven(project, kEmptyProject) && DeleteProjectCores(project);
  }
  bool HasWellShots(const char* wellID) override { return IsWellCoresExist(wellID); }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CShotData, IShotData)
