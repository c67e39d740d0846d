#include "dbaccess/DataObject.h"
#include "petrodb/welllog/IPerforatedSec.h"

using namespace petrodb;

namespace {

constexpr Pattern<"select * from w_perforated_sec where Jh like '%s%%'"> kFind;
constexpr Pattern<"select * from w_perforated_sec where Jh = '%s'"> kWell;
constexpr Pattern<"select * from w_perforated_sec order by jh, Prod_horizon"> kAll;
constexpr Pattern<"select * from w_perforated_sec where Jh in ( select NodeName from n_nodes where PipenetName = "
                  "'%s' and NodeType = %d ) order by Jh">
    kNetwork;
constexpr Pattern<"delete from w_perforated_sec where Jh = '%s'"> kDeleteWell;
constexpr Pattern<"delete from w_perforated_sec where Jh in ( select NodeName from n_nodes where PipenetName = "
                  "'%s' and NodeType = %d )">
    kDeleteNetwork;
constexpr Pattern<"delete from w_perforated_sec where Jh in (%s)"> kDeleteWells;

constexpr int kInjectionWellNode = 2;  // n_nodes.NodeType of injection wells
constexpr const char* kTable = "w_perforated_sec";

#define PERFORATION_COLUMN(name) Col(#name, &PerforatedSection::name)
const ColumnTable<PerforatedSection> kColumns{kTable, {
    PERFORATION_COLUMN(Jh),
    PERFORATION_COLUMN(Prod_horizon),
    PERFORATION_COLUMN(Total_depth),
    PERFORATION_COLUMN(Well_bottom),
    PERFORATION_COLUMN(Case_out_dia),
    PERFORATION_COLUMN(Case_in_dia),
    PERFORATION_COLUMN(Case_thickness),
    PERFORATION_COLUMN(Perf_thickness),
    PERFORATION_COLUMN(Perf_section),
    PERFORATION_COLUMN(Perf_horizon),
    PERFORATION_COLUMN(Inj_date),
    PERFORATION_COLUMN(Tube_comp_dist),
    PERFORATION_COLUMN(Inj_section),
    PERFORATION_COLUMN(Cement_top_depth),
    PERFORATION_COLUMN(Azimuth),
    PERFORATION_COLUMN(Inc),
    PERFORATION_COLUMN(Hole_dia),
    PERFORATION_COLUMN(Turb_coef),
    PERFORATION_COLUMN(Flow_vol_coef),
    PERFORATION_COLUMN(Flow_den),
    PERFORATION_COLUMN(Hole_pass_len),
    PERFORATION_COLUMN(Hole_pass_dia),
    PERFORATION_COLUMN(Compaction_perm),
    PERFORATION_COLUMN(Compaction_rad),
    PERFORATION_COLUMN(Reservoir_P),
    PERFORATION_COLUMN(Horizon_num),
}};
#undef PERFORATION_COLUMN

constexpr Message kEmptyWellNumber = ErrorMessage("注水井号不能为空！");
constexpr Message kEmptyNetwork = ErrorMessage("管网名称不能为空！");
constexpr Message kTableMissing = ErrorMessage("射孔段数据表为空！");
constexpr Message kSaveFailed = ErrorMessage("保存数据库出错！");

const ReplaceSteps kSaveShown{kTable, Probe::First, kTableMissing, kSaveFailed};
const ReplaceSteps kSaveQuiet{kTable, Probe::First, kTableMissing};
const ReplaceSteps kSaveList{kTable, Probe::AfterDelete, kTableMissing};

}  // namespace

class CPerforatedSec final : public CDataObject<IPerforatedSec> {
 public:
  bool FindPerforatedSections(const char* wellNumberPrefix, int, int, std::vector<PerforatedSection>& rows) override {
    return LoadAll(kFind(wellNumberPrefix), kColumns, rows, Fill::Clear).found();
  }
  bool LoadPerforatedSections(const char* wellNumber, std::vector<PerforatedSection>& rows) override {
    return LoadAll(kWell(wellNumber), kColumns, rows, Fill::Clear).found();
  }
  bool LoadAllPerforatedSections(std::vector<PerforatedSection>& rows) override {
    return LoadAll(kAll(), kColumns, rows, Fill::Clear).found();
  }
  bool LoadNetworkPerforatedSections(const char* pipenetName, std::vector<PerforatedSection>& rows) override {
    return LoadAll(kNetwork(pipenetName, kInjectionWellNode), kColumns, rows, Fill::Clear).found();
  }

  bool SavePerforatedSection(const PerforatedSection& row) override {
    return KeyGiven(row.Jh, kEmptyWellNumber) && SaveOne(kSaveShown, row);
  }
  bool SavePerforatedSectionQuiet(const PerforatedSection& row) override {
    return !row.Jh.empty() && SaveOne(kSaveQuiet, row);
  }

  // Every row's well goes through DeletePerforatedSections (whatever it
  // answers) before the probe and the first insert.
  bool SavePerforatedSections(const std::vector<PerforatedSection>& rows) override {
    for (const auto& r : rows)
      if (kDeleteWell(r.Jh).refused()) return false;
    return ReplaceAfter(
        kSaveList,
        [&](CDbManage&) {
          for (const auto& r : rows) DeletePerforatedSections(r.Jh.c_str());
          return true;
        },
        [&](CDbManage& db) { kColumns.AddRows(db, rows); });
  }

  bool DeletePerforatedSections(const char* wellNumber) override {
    return KeyGiven(wellNumber, kEmptyWellNumber) && ExecuteOnTable(kTable, kDeleteWell(wellNumber));
  }
  bool DeleteNetworkPerforatedSections(const char* pipenetName) override {
    return KeyGiven(pipenetName, kEmptyNetwork) &&
           ExecuteOnTable(kTable, kDeleteNetwork(pipenetName, kInjectionWellNode));
  }
  bool DeletePerforatedSectionsOfWells(const std::vector<std::string>& wellNumbers) override {
    return ExecuteOnTable(kTable, kDeleteWells(sql::QuoteEach(wellNumbers)));
  }
  PETRODB_DATA_CLASS

 private:
  // The table is probed first; all rows of the well go through
  // DeletePerforatedSections, which must succeed; then the one row is written.
  bool SaveOne(const ReplaceSteps& steps, const PerforatedSection& row) {
    return ReplaceAfter(steps, [&](CDbManage&) { return DeletePerforatedSections(row.Jh.c_str()); },
                        [&](CDbManage& db) { kColumns.AddRow(db, row); });
  }
};

PETRODB_REGISTER_CLASS(CPerforatedSec, IPerforatedSec)
