// Deviation surveys: the nine arrays, and the two saves with their different tests.
#include <cstring>

#include "TestSupport.h"
#include "petrodb/welllog/IDeviateData.h"

namespace petrodb::test {
namespace {

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
};

void ExpectSame(const DeviationSurvey& a, const DeviationSurvey& b) {
  EXPECT_EQ(a.WellID, b.WellID);
  for (auto m : {&DeviationSurvey::Md, &DeviationSurvey::Azimuth, &DeviationSurvey::Inclination,
                 &DeviationSurvey::Xoffset, &DeviationSurvey::Yoffset, &DeviationSurvey::Xcoor, &DeviationSurvey::Ycoor,
                 &DeviationSurvey::Tvd, &DeviationSurvey::Tvdss})
    EXPECT_EQ(a.*m, b.*m);
}

TEST_F(DeviateDataTest, SaveReplacesTheRowAndLoadsItBackUnchanged) {
  ASSERT_TRUE(object_->SaveSurvey(Full("W1")));
  ASSERT_TRUE(object_->SaveSurvey(Full("W1")));
  EXPECT_EQ(Query("select WellID from w_deviate_well"), std::vector<std::string>{"W1"});
  DeviationSurvey back;
  ASSERT_TRUE(object_->LoadSurvey("W1", back));
  ExpectSame(back, Full("W1"));
  EXPECT_FALSE(object_->IsSurveyExist("W2"));
}

TEST_F(DeviateDataTest, SavingWithoutStationsRemovesTheSurvey) {
  ASSERT_TRUE(object_->SaveSurvey(Full("W1")));
  DeviationSurvey empty = Full("W1");
  empty.Md.clear();
  EXPECT_TRUE(object_->SaveSurvey(empty));
  EXPECT_TRUE(Query("select WellID from w_deviate_well").empty());
  DeviationSurvey none;
  EXPECT_FALSE(object_->SaveSurvey(none));
  EXPECT_EQ(messages_.texts(), std::vector<std::string>{"井名称不能为空！"});
}

TEST_F(DeviateDataTest, BatchSaveDropsSurveysWithoutTvdOrXcoorButDeletesTheirRows) {
  ASSERT_TRUE(object_->SaveSurvey(Full("W1")));
  ASSERT_TRUE(object_->SaveSurvey(Full("W2")));
  DeviationSurvey noTvd = Full("W1");
  noTvd.Tvd.clear();
  DeviationSurvey noX = Full("W3");
  noX.Xcoor.clear();
  ASSERT_TRUE(object_->SaveSurveys(0, {noTvd, Full("W2"), noX}));
  EXPECT_EQ(Query("select WellID from w_deviate_well"), std::vector<std::string>{"W2"});
  // The single save keeps a survey without Tvd: it only tests Md.
  ASSERT_TRUE(object_->SaveSurvey(noTvd));
  DeviationSurvey back;
  EXPECT_FALSE(object_->LoadSurvey("W1", back));  // Tvd is NULL: the load stops there
  EXPECT_EQ(back.Ycoor, noTvd.Ycoor);
}

TEST_F(DeviateDataTest, ProjectStatementsAndLists) {
  Exec("insert into w_well_data (ProjectName, WellID) values ('P', 'W1'), ('P', 'W2'), ('Q', 'W3')");
  for (const char* w : {"W1", "W2", "W3"}) ASSERT_TRUE(object_->SaveSurvey(Full(w)));
  std::vector<DeviationSurvey> list;
  sql_.clear();
  ASSERT_TRUE(object_->LoadProjectSurveys("P", list));
  EXPECT_EQ(sql_.texts().at(0),  // tabs as sent
            "select * from w_deviate_well where exists ( select WellID from w_well_data where ProjectName \t\t= 'P' "
            "and w_well_data.WellID = w_deviate_well.WellID )");
  EXPECT_EQ(list.size(), 2u);
  std::vector<std::string> found;
  ASSERT_TRUE(object_->GetWellsWithSurvey(0, {"W3", "W9"}, found));
  EXPECT_EQ(found, std::vector<std::string>{"W3"});

  EXPECT_FALSE(object_->DeleteProjectSurveys(""));
  EXPECT_EQ(messages_.texts(), std::vector<std::string>{"工区名称不能为空！"});
  ASSERT_TRUE(object_->DeleteProjectSurveys("P"));
  EXPECT_EQ(Query("select WellID from w_deviate_well"), std::vector<std::string>{"W3"});
  ASSERT_TRUE(object_->DeleteSurveys({"W3"}));
  EXPECT_TRUE(Query("select WellID from w_deviate_well").empty());
}

TEST_F(DeviateDataTest, ListsAreClearedFirstExceptTheFoundWells) {
  Exec("insert into w_well_data (ProjectName, WellID) values ('P', 'W1')");
  ASSERT_TRUE(object_->SaveSurvey(Full("W1")));
  std::vector<std::string> ids{"stale"}, found{"kept"};
  ASSERT_TRUE(object_->GetSurveyedWellIDs("P", ids));
  EXPECT_EQ(ids, std::vector<std::string>{"W1"});
  std::vector<DeviationSurvey> list(2);
  ASSERT_TRUE(object_->LoadSurveys({"W1", "W3"}, list));
  ASSERT_EQ(list.size(), 1u);
  ExpectSame(list[0], Full("W1"));
  list.resize(3);
  ASSERT_TRUE(object_->LoadProjectSurveys("P", list));
  EXPECT_EQ(list.size(), 1u);
  // "Which of these wells have a survey" adds to the caller's list.
  ASSERT_TRUE(object_->GetWellsWithSurvey(0, {"W1"}, found));
  EXPECT_EQ(found, (std::vector<std::string>{"kept", "W1"}));
}

TEST_F(DeviateDataTest, AWellIDWithAQuoteFailsTheSaveBeforeAnyWrite) {
  ASSERT_TRUE(object_->SaveSurvey(Full("W1")));
  sql_.clear();
  EXPECT_FALSE(object_->SaveSurvey(Full("W'1")));
  DeviationSurvey stationless = Full("W'1");
  stationless.Md.clear();
  EXPECT_FALSE(object_->SaveSurvey(stationless));
  EXPECT_FALSE(object_->SaveSurveys(0, {Full("W1"), Full("W'2")}));
  EXPECT_TRUE(sql_.texts("ExecuteSQL").empty());
  EXPECT_TRUE(sql_.texts("SaveData").empty());
  EXPECT_EQ(Query("select WellID from w_deviate_well"), std::vector<std::string>{"W1"});
}

}  // namespace
}  // namespace petrodb::test
