#include "petrodb/project/ISectionWellListData.h"
#include "project/ProjectData.h"

using namespace petrodb;

namespace {

constexpr Pattern<"select Setction_Name from b_sectionwelllist_data order by Setction_Name"> kSectionNames;
constexpr Pattern<"select * from b_sectionwelllist_data where Setction_Name='%s'"> kLoadSection;
constexpr Pattern<"select * from b_sectionwelllist_data"> kAllSections;
constexpr Pattern<"delete from b_sectionwelllist_data where Setction_Name='%s'"> kDeleteSection;
constexpr Pattern<"delete from  b_sectionwelllist_data where Setction_Name='%s'"> kReplaceEachSection;
constexpr Pattern<"delete from  b_sectionwelllist_data"> kDeleteAll;

const ColumnTable<SectionWellListRecord> kSectionColumns{"b_sectionwelllist_data", {
    Col("Setction_Name", &SectionWellListRecord::Setction_Name),
    Col("Section_WellList", &SectionWellListRecord::Section_WellList),
}};

constexpr Message kEmptyName = AppMessage("剖面名称不能为空！");
const ReplaceSteps kSaveSections{kSectionColumns.table()};

}  // namespace

class CSectionWellListData final : public ProjectDataObject<ISectionWellListData> {
 public:
  bool GetSectionNames(std::vector<std::string>& names) override {
    return ListColumn(kSectionNames(), "Setction_Name", names, Fill::Clear).found();
  }

  bool LoadSectionWellList(const char* name, SectionWellListRecord& record) override {
    return LoadField(kLoadSection(name), "Section_WellList", record.Section_WellList);
  }

  bool GetSectionWellLists(std::vector<SectionWellListRecord>& list) override {
    return LoadAll(kAllSections(), kSectionColumns, list, Fill::Clear).ran();
  }

  bool SaveSectionWellList(const SectionWellListRecord& record) override {
    if (!KeyGiven(record.Setction_Name, kEmptyName)) return false;
    if (!KeyGiven(record.Section_WellList, AppMessage("井名组合不能为空！"))) return false;
    return Replace(kSaveSections, kDeleteSection(record.Setction_Name),
                   [&](CDbManage& db) { kSectionColumns.AddRow(db, record); });
  }

  // One save for all sections: each section's old row is deleted as its new
  // row is added. A name that cannot be spliced fails the save before the
  // probe, so nothing of the list is written.
  bool SaveSectionWellLists(const std::vector<SectionWellListRecord>& list) override {
    std::vector<Statement> deletes;
    for (const auto& record : list) {
      deletes.push_back(kReplaceEachSection(record.Setction_Name));
      if (deletes.back().refused()) return false;
    }
    return Save(kSaveSections, [&](CDbManage& db) {
      for (std::size_t i = 0; i < list.size(); ++i) {
        db.ExecuteSQL(deletes[i].c_str());
        kSectionColumns.AddRow(db, list[i]);
      }
    });
  }

  bool DeleteSectionWellList(const char* name) override {
    return KeyGiven(name ? name : "", kEmptyName) && ExecuteIfTable(kSaveSections.table, kDeleteSection(name));
  }

  bool DeleteAllSectionWellLists() override { return ExecuteIfTable(kSaveSections.table, kDeleteAll()); }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CSectionWellListData, ISectionWellListData)
