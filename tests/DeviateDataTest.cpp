// Deviation surveys: the nine arrays, and the two saves with their different tests.
#include <cstring>

#include "TestSupport.h"
#include "petrodb/welllog/IDeviateData.h"

namespace petrodb::test {
namespace {

using Texts = std::vector<std::string>;

class DeviateDataTest : public ObjectTest<IDeviateData, "IDeviateData"> {
 protected:
  static DeviationSurvey Full(const std::string& well) {
    DeviationSurvey s;
    s.WellID = well;
    s.Md = {0, 100, 200};
    s.Azimuth = {0, 45.5, 90};
    s.Inclination = {0, 1.25, 3};
    s.Xoffset = {0, 0.5};  // shorter than the rest: stored as given
    s.Yoffset = {0, 0.75, 1, 2};
    s.Xcoor = {1e7, 1e7 + 0.5, 1e7 + 1};
    s.Ycoor = {4e6, 4e6, 4e6};
    s.Tvd = {0, 99.99, 199.9};
    s.Tvdss = {-50, 49.99, 149.9};
    return s;
  }
  Texts Stored() { return Query("select WellID from w_deviate_well order by WellID"); }
};

void ExpectSame(const DeviationSurvey& a, const DeviationSurvey& b) {
  EXPECT_EQ(a.WellID, b.WellID);
  for (auto m : {&DeviationSurvey::Md, &DeviationSurvey::Azimuth, &DeviationSurvey::Inclination,
                 &DeviationSurvey::Xoffset, &DeviationSurvey::Yoffset, &DeviationSurvey::Xcoor, &DeviationSurvey::Ycoor,
                 &DeviationSurvey::Tvd, &DeviationSurvey::Tvdss})
    EXPECT_EQ(a.*m, b.*m);
}

TEST_F(DeviateDataTest, SaveReplacesTheRowAndWithoutStationsRemovesIt) {
  ASSERT_TRUE(object_->SaveSurvey(Full("W1")));
  ASSERT_TRUE(object_->SaveSurvey(Full("W1")));
  EXPECT_EQ(Stored(), Texts{"W1"});
  DeviationSurvey back;
  ASSERT_TRUE(object_->LoadSurvey("W1", back));
  ExpectSame(back, Full("W1"));
  back.Md.clear();
  EXPECT_TRUE(object_->SaveSurvey(back));
  EXPECT_TRUE(Stored().empty());
  EXPECT_FALSE(object_->SaveSurvey(DeviationSurvey{}));
  EXPECT_EQ(messages_.texts(), Texts{"井名称不能为空！"});
  // A well ID with a quote fails the batch before any write.
  ASSERT_TRUE(object_->SaveSurvey(Full("W1")));
  sql_.clear();
  EXPECT_FALSE(object_->SaveSurveys(0, {Full("W1"), Full("W'2")}));
  EXPECT_TRUE(sql_.texts("ExecuteSQL").empty());
  EXPECT_TRUE(sql_.texts("SaveData").empty());
  EXPECT_EQ(Stored(), Texts{"W1"});
}

TEST_F(DeviateDataTest, BatchSaveDropsSurveysWithoutTvdOrXcoorButDeletesTheirRows) {
  ASSERT_TRUE(object_->SaveSurvey(Full("W1")));
  ASSERT_TRUE(object_->SaveSurvey(Full("W2")));
  DeviationSurvey noTvd = Full("W1"), noX = Full("W3");
  noTvd.Tvd.clear();
  noX.Xcoor.clear();
  ASSERT_TRUE(object_->SaveSurveys(0, {noTvd, Full("W2"), noX}));
  EXPECT_EQ(Stored(), Texts{"W2"});
  // The single save keeps a survey without Tvd: it only tests Md.
  ASSERT_TRUE(object_->SaveSurvey(noTvd));
  DeviationSurvey back;
  EXPECT_FALSE(object_->LoadSurvey("W1", back));  // Tvd is NULL: the load stops there
  EXPECT_EQ(back.Ycoor, noTvd.Ycoor);
}

TEST_F(DeviateDataTest, ProjectStatementsAndLists) {
  Exec("insert into w_well_data (ProjectName, WellID) values ('P', 'W1'), ('P', 'W2'), ('Q', 'W3')");
  for (const char* w : {"W1", "W2", "W3"}) ASSERT_TRUE(object_->SaveSurvey(Full(w)));
  std::vector<DeviationSurvey> list(3);
  sql_.clear();
  ASSERT_TRUE(object_->LoadProjectSurveys("P", list));
  EXPECT_EQ(sql_.texts().at(0),  // tabs as sent
            "select * from w_deviate_well where exists ( select WellID from w_well_data where ProjectName \t\t= 'P' "
            "and w_well_data.WellID = w_deviate_well.WellID )");
  ASSERT_EQ(list.size(), 2u);
  ExpectSame(list[1], Full(list[1].WellID));
  ASSERT_TRUE(object_->LoadSurveys({"W1", "W4"}, list));
  EXPECT_EQ(list.size(), 1u);
  Texts ids{"stale"}, found{"kept"};
  ASSERT_TRUE(object_->GetSurveyedWellIDs("Q", ids));
  EXPECT_EQ(ids, Texts{"W3"});
  // "Which of these wells have a survey" adds to the caller's list.
  ASSERT_TRUE(object_->GetWellsWithSurvey(0, {"W3", "W9"}, found));
  EXPECT_EQ(found, (Texts{"kept", "W3"}));

  ASSERT_TRUE(object_->DeleteProjectSurveys("P"));
  EXPECT_EQ(Stored(), Texts{"W3"});
  ASSERT_TRUE(object_->DeleteSurveys({"W3"}));
  EXPECT_TRUE(Stored().empty());
}

}  // namespace
}  // namespace petrodb::test
