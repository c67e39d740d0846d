// The curve dictionary, curve aliases and image aliases.
#include <tuple>

#include "TestSupport.h"
#include "petrodb/welllog/IAliasData.h"
#include "petrodb/welllog/ICurveDictionary.h"
#include "petrodb/welllog/ICurvealiasData.h"

namespace petrodb::test {
namespace {

class CurveDictionaryTest : public ProjectTest {
 protected:
  void SetUp() override {
    ProjectTest::SetUp();
    dictionary_ = Make<ICurveDictionary>("ICurveDictionary");
    aliases_ = Make<ICurvealiasData>("ICurvealiasData");
    images_ = Make<IAliasData>("IAliasData");
    ASSERT_TRUE(dictionary_ && aliases_ && images_);
  }
  static CurveTemplate Gr() { return {"GR", "自然伽马", "API", 0, 150, 1, 0x00ff00, 1.5, 2}; }
  static auto Tie(const CurveTemplate& t) {
    return std::tie(t.CurveName, t.DisplayName, t.CurveUnit, t.LeftValue, t.RightValue, t.CurveType, t.Color,
                    t.CurveWidth, t.CoorType);
  }
  std::unique_ptr<ICurveDictionary> dictionary_;
  std::unique_ptr<ICurvealiasData> aliases_;
  std::unique_ptr<IAliasData> images_;
};

TEST_F(CurveDictionaryTest, TemplatesAreFoundByNameOrAlias) {
  ASSERT_TRUE(dictionary_->SaveTemplate(Gr()));
  ASSERT_TRUE(dictionary_->SaveTemplate(Gr()));
  EXPECT_EQ(Query("select CurveName from w_curve_dictionary"), std::vector<std::string>{"GR"});
  CurveTemplate byAlias, byName;
  ASSERT_TRUE(dictionary_->LoadTemplate("GR", byName));
  EXPECT_EQ(Tie(byName), Tie(Gr()));
  ASSERT_TRUE(aliases_->SaveAllAliases({{"GR", "GAMMA"}, {"GR", "CGR"}, {"SP", "SPONT"}}));
  std::vector<std::string> aliases;
  ASSERT_TRUE(aliases_->GetAliasesOfCurve("GR", aliases));
  EXPECT_EQ(aliases.size(), 2u);
  sql_.clear();
  const bool found = dictionary_->LoadTemplateByAlias("CGR", byAlias);
  EXPECT_EQ(sql_.texts().back(),
            "select * from w_curve_dictionary where CurveName in (select all distinct CurveName from "
            "w_curvealias_data where CurveAlias = 'CGR') or CurveName = 'CGR'");
  // "all distinct" is Access syntax: a server refuses it, as SQL Server does.
  EXPECT_EQ(found, jet());
  if (jet()) {
    ASSERT_TRUE(dictionary_->LoadTemplateByAlias("GR", byName));
    EXPECT_EQ(Tie(byAlias), Tie(Gr()));
    EXPECT_EQ(Tie(byName), Tie(Gr()));
    EXPECT_FALSE(dictionary_->LoadTemplateByAlias("SPONT", byName));  // SP has no template
  } else {
    EXPECT_EQ(sql_.events().back().result, 2);
  }
  // Saving an empty alias list empties the table.
  ASSERT_TRUE(aliases_->SaveAllAliases({}));
  std::vector<CurveAliasEntry> all;
  EXPECT_FALSE(aliases_->LoadAllAliases(all));
}

TEST_F(CurveDictionaryTest, BatchSaveAndDeletes) {
  CurveTemplate sp = Gr();
  sp.CurveName = "SP";
  ASSERT_TRUE(dictionary_->SaveTemplate(Gr()));
  ASSERT_TRUE(dictionary_->SaveTemplates(0, {Gr(), sp}));
  std::vector<std::string> names;
  ASSERT_TRUE(dictionary_->GetCurveNames(names));
  EXPECT_EQ(names, (std::vector<std::string>{"GR", "SP"}));
  EXPECT_FALSE(dictionary_->DeleteTemplate(""));
  EXPECT_EQ(messages_.texts(), std::vector<std::string>{"曲线名称不能为空！"});
  ASSERT_TRUE(dictionary_->DeleteTemplate("SP"));
  EXPECT_FALSE(dictionary_->IsTemplateExist("SP"));
  sql_.clear();
  // The Access form "delete *" runs on project files only; a server refuses it.
  EXPECT_EQ(dictionary_->DeleteAllTemplates("any project"), jet());
  EXPECT_EQ(sql_.texts("ExecuteSQL"), std::vector<std::string>{"delete * from w_curve_dictionary "});
  EXPECT_EQ(dictionary_->GetCurveNames(names), !jet());

  // A quoted name fails the save before anything is written.
  sp.CurveName = "G'R";
  sql_.clear();
  EXPECT_FALSE(dictionary_->SaveTemplates(0, {Gr(), sp}));
  EXPECT_TRUE(sql_.texts("ExecuteSQL").empty());
  EXPECT_TRUE(sql_.texts("SaveData").empty());
}

TEST_F(CurveDictionaryTest, ImageAliasesAppendOrReplace) {
  const std::vector<ImageAlias> list{{"砂岩", 3, 1, "sandstone"}, {"泥岩", 3, 2, "shale"}};
  ASSERT_TRUE(images_->SaveImageAliases(list));
  ASSERT_TRUE(images_->SaveImageAliases(list));
  EXPECT_EQ(Query("select AliasName from b_image_alias").size(), 4u);
  ASSERT_TRUE(images_->SaveImageAlias({"砂岩", 3, 1, "sand"}));
  EXPECT_EQ(Query("select ImageName from b_image_alias where AliasName='砂岩'"), std::vector<std::string>{"sand"});
  std::vector<ImageAlias> facet;
  ASSERT_TRUE(images_->LoadImageAliasesOfFacet(2, facet));
  ASSERT_EQ(facet.size(), 2u);
  EXPECT_EQ(std::tie(facet[0].ImageName, facet[0].ImageType), std::make_tuple("shale", 0));  // the type is never read back
  ASSERT_TRUE(images_->DeleteAllImageAliases());
  EXPECT_FALSE(images_->LoadImageAliases(facet));
}

}  // namespace
}  // namespace petrodb::test
