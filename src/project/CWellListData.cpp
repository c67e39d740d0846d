#include "petrodb/project/IWellListData.h"
#include "project/ProjectData.h"

using namespace petrodb;

namespace {

constexpr Pattern<"select Distinct WellListName from b_welllist_data order by WelllistName"> kListNames;
constexpr Pattern<"select * from b_welllist_data where WelllistName='%s'"> kLoadList;
constexpr Pattern<"delete from  b_welllist_data where WellListName='%s'"> kReplaceList;
constexpr Pattern<"delete from b_welllist_data where WellListName='%s'"> kDeleteList;
constexpr Pattern<"select WellListName from  b_welllist_data where WellListName='%s'"> kListExists;

// One row per member; WellListName comes from the list.
const ColumnTable<WellListItem> kItemColumns{"b_welllist_data", {
    Col("WellID", &WellListItem::WellID),
    Col("WellNumber", &WellListItem::WellNumber),
}};

constexpr Message kEmptyName = AppMessage("井列表名称不能为空！");
const ReplaceSteps kSaveList{kItemColumns.table()};

}  // namespace

class CWellListData final : public ProjectDataObject<IWellListData> {
 public:
  bool GetWellListNames(std::vector<std::string>& names) override {
    return ListColumn(kListNames(), "WellListName", names, Fill::Clear).found();
  }

  // Members are appended to what the record holds, in the database's order;
  // the first unreadable row ends them.
  bool LoadWellList(const char* name, WellListRecord& record) override {
    const Loaded loaded = LoadAll(kLoadList(name), kItemColumns, record.Wells, Fill::Append);
    if (!loaded.found() && loaded.result != kRowUnreadable) return false;
    record.WellListName = name;
    return true;
  }

  // An empty list deletes the list and writes nothing.
  bool SaveWellList(const WellListRecord& record) override {
    if (!KeyGiven(record.WellListName, kEmptyName)) return false;
    return Replace(kSaveList, kReplaceList(record.WellListName), [&](CDbManage& db) {
      for (const auto& item : record.Wells) kItemColumns.AddKeyedRow(db, "WellListName", record.WellListName, item);
    });
  }

  bool DeleteWellList(const char* name) override {
    return KeyGiven(name ? name : "", kEmptyName) && ExecuteIfTable(kSaveList.table, kDeleteList(name));
  }

  bool IsWellListExist(const char* name) override { return ExistsInTable(kSaveList.table, kListExists(name)); }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CWellListData, IWellListData)
