#include "dbaccess/DataObject.h"
#include "petrodb/welllog/IWellBoreStructural.h"
#include "welllog/WellLogCommon.h"

using namespace petrodb;
using welllog::kEmptyWell;

namespace {

constexpr Pattern<"select * from w_wellbore_structural where WELLID = '%s'"> kWellSections;
constexpr Pattern<"select distinct WellID from w_wellbore_structural order by WellID "> kBoreWells;
constexpr Pattern<"select * from w_wellbore_structural where WellID='%s'"> kBoreExists;
// The two saves spell the same delete differently; both are sent as written.
constexpr Pattern<"delete from w_wellbore_structural where WELLID='%s' and BORENAME='%s'"> kDeleteListed;
constexpr Pattern<"delete from w_wellbore_structural where WELLID='%s'and BORENAME='%s'"> kDeleteOne;
constexpr Pattern<"delete from w_wellbore_structural where WELLID = '%s'"> kDeleteWell;
constexpr Pattern<"delete from w_wellbore_structural"> kDeleteAll;

constexpr const char* kTable = "w_wellbore_structural";

// The well column is written, not read: a load takes the well it was asked for.
const ColumnTable<BoreSection> kSectionColumns{kTable, {
    Col("WELLID", &BoreSection::WELLID).WriteOnly(),
    Col("BORENAME", &BoreSection::BORENAME),
    Col("BITSIZE", &BoreSection::BITSIZE),
    Col("TOPDEPTH", &BoreSection::TOPDEPTH),
    Col("BOTDEPTH", &BoreSection::BOTDEPTH),
}};

constexpr Message kEmptyWellNumber = ErrorMessage("井号不能为空！");

const ReplaceSteps kReplace{kTable};

}  // namespace

class CWellBoreStructuralData final : public CDataObject<IWellBoreStructural> {
 public:
  bool LoadWellBoreSections(const char* wellID, std::vector<BoreSection>& sections) override {
    return LoadRows(kWellSections(wellID), sections, Fill::Clear, [&](CDbManage& db, BoreSection& s) {
             s.WELLID = wellID;
             return kSectionColumns.Read(db, s);
           }).found();
  }

  bool GetBoreWellIDs(std::vector<std::string>& wellIDs) override {
    return ListColumn(kBoreWells(), "WELLID", wellIDs, Fill::Clear).found();
  }

  bool LoadAllBoreSections(std::vector<BoreSection>& sections) override {
    sections.clear();
    std::vector<std::string> wells;
    GetBoreWellIDs(wells);
    for (const auto& well : wells) {
      std::vector<BoreSection> ofWell;
      LoadWellBoreSections(well.c_str(), ofWell);
      sections.insert(sections.end(), ofWell.begin(), ofWell.end());
    }
    return true;
  }

  bool IsWellBoreExist(const char* wellID) override {
    return KeyGiven(wellID, kEmptyWell) && ExistsInTable(kTable, kBoreExists(wellID));
  }

  bool SaveBoreSections(const std::vector<BoreSection>& sections) override {
    std::vector<Statement> deletes;
    for (const auto& s : sections) deletes.push_back(kDeleteListed(s.WELLID, s.BORENAME));
    return Replace(kReplace, deletes, [&](CDbManage& db) { kSectionColumns.AddRows(db, sections); });
  }

  // Each ID goes through IsWellBoreExist (an empty one shows its message).
  bool GetWellsWithBore(const std::vector<std::string>& wellIDs, std::vector<std::string>& found) override {
    bool any = false;
    for (const auto& id : wellIDs)
      if (IsWellBoreExist(id.c_str())) {
        found.push_back(id);
        any = true;
      }
    return any;
  }

  bool SaveBoreSection(const BoreSection& section) override {
    return Replace(kReplace, kDeleteOne(section.WELLID, section.BORENAME),
                   [&](CDbManage& db) { kSectionColumns.AddRow(db, section); });
  }

  bool DeleteWellBore(const char* wellID) override {
    return KeyGiven(wellID, kEmptyWellNumber) && ExecuteOnTable(kTable, kDeleteWell(wellID));
  }

  bool DeleteAllBoreSections() override { return ExecuteOnTable(kTable, kDeleteAll()); }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CWellBoreStructuralData, IWellBoreStructural)
