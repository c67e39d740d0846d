#include "welllog/LasFileStore.h"

#include "dbaccess/DataObject.h"
#include "petrodb/welllog/ILogData.h"

namespace petrodb {
namespace {

constexpr Pattern<"select * from w_las_item where WellID='%s' and DepthCurveName='%s' order by ItemSection, ItemOrder">
    kSelectItems;
constexpr Pattern<"delete from w_las_item where WellID='%s' and DepthCurveName='%s'"> kDeleteItems;

const ColumnTable<LasItemRecord> kItemColumns{"w_las_item", {
    Col("WellID", &LasItemRecord::WellID),
    Col("DepthCurveName", &LasItemRecord::DepthCurveName),
    Col("ItemSection", &LasItemRecord::ItemSection),
    Col("ItemOrder", &LasItemRecord::ItemOrder),
    Col("Mnemonic", &LasItemRecord::Mnemonic),
    Col("Unit", &LasItemRecord::Unit).Or(std::string()),
    Col("ItemValue", &LasItemRecord::ItemValue).Or(std::string()),
    Col("Description", &LasItemRecord::Description).Or(std::string()),
}};

const ReplaceSteps kSaveItems{"w_las_item", Probe::None};

class CLasFileStore final : public CDataObject<ILasFileStore> {
 public:
  bool HasTable() override { return TableAnswers("w_las_item"); }

  bool LoadItems(const char* wellID, const char* depthCurveName, std::vector<LasItemRecord>& items) override {
    return LoadAll(kSelectItems(wellID, depthCurveName), kItemColumns, items, Fill::Clear).found();
  }

  bool SaveImport(const WellLog& log, const std::string& depthCurveName,
                  const std::vector<LasItemRecord>& items) override {
    auto logs = CreateObject<ILogData>("ILogData");
    if (!logs) return false;
    return Atomically([&] {
      if (!logs->SaveWellLog(log)) return false;
      if (!HasTable()) return true;
      return Replace(kSaveItems, kDeleteItems(log.WellID, depthCurveName),
                     [&](CDbManage& db) { kItemColumns.AddRows(db, items); });
    });
  }
};

}  // namespace

std::unique_ptr<ILasFileStore> MakeLasFileStore(const std::string& connection) {
  auto store = std::make_unique<CLasFileStore>();
  store->SetConnection(connection.c_str());
  return store;
}

}  // namespace petrodb
