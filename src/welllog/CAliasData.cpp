#include "dbaccess/DataObject.h"
#include "petrodb/welllog/IAliasData.h"

using namespace petrodb;

namespace {

constexpr Pattern<"select * from b_image_alias"> kSelectAll;
constexpr Pattern<"select * from b_image_alias where ImageFacet=%d"> kSelectFacet;
constexpr Pattern<"delete from b_image_alias where AliasName='%s'"> kDeleteAlias;
constexpr Pattern<"delete from  b_image_alias"> kDeleteAll;

// ImageType is written but never read back: loads leave it at 0.
const ColumnTable<ImageAlias> kAliasColumns{"b_image_alias", {
    Col("AliasName", &ImageAlias::AliasName),
    Col("ImageType", &ImageAlias::ImageType).WriteOnly(),
    Col("ImageFacet", &ImageAlias::ImageFacet),
    Col("ImageName", &ImageAlias::ImageName),
}};

const ReplaceSteps kSave{"b_image_alias"};

}  // namespace

class CAliasData final : public CDataObject<IAliasData> {
 public:
  bool LoadImageAliases(std::vector<ImageAlias>& aliases) override {
    return LoadAll(kSelectAll(), kAliasColumns, aliases, Fill::Clear).found();
  }

  bool LoadImageAliasesOfFacet(int facet, std::vector<ImageAlias>& aliases) override {
    return LoadAll(kSelectFacet(facet), kAliasColumns, aliases, Fill::Clear).found();
  }

  bool SaveImageAlias(const ImageAlias& alias) override {
    return Replace(kSave, kDeleteAlias(alias.AliasName), [&](CDbManage& db) { kAliasColumns.AddRow(db, alias); });
  }

  bool SaveImageAliases(const std::vector<ImageAlias>& aliases) override {
    return Save(kSave, [&](CDbManage& db) { kAliasColumns.AddRows(db, aliases); });
  }

  bool DeleteAllImageAliases() override { return ExecuteOnTable("b_image_alias", kDeleteAll()); }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CAliasData, IAliasData)
