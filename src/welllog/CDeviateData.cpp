#include "dbaccess/DataObject.h"
#include "petrodb/welllog/IDeviateData.h"
#include "welllog/WellLogCommon.h"

using namespace petrodb;
using welllog::kEmptyProject;
using welllog::kEmptyWell;

namespace {

constexpr Pattern<"select w_well_data.wellid from w_well_data where w_well_data.ProjectName = '%s' and exists( "
                  "select w_deviate_well.wellid from w_deviate_well where w_well_data.wellid = "
                  "w_deviate_well.wellid )  order by w_well_data.wellid ">
    kSurveyedWells;
constexpr Pattern<"select * from w_deviate_well where WellID in (%s)"> kSelectWells;
constexpr Pattern<"select * from w_deviate_well where WellID='%s' "> kSelectWell;
constexpr Pattern<"select * from w_deviate_well where exists ( select WellID from w_well_data where ProjectName "
                  "\t\t= '%s' and w_well_data.WellID = w_deviate_well.WellID )">
    kSelectProject;
constexpr Pattern<"select WellID from  w_deviate_well where WellID='%s'"> kSurveyExists;
constexpr Pattern<"select WellID from  w_deviate_well where WellID in (%s)"> kWellsWithSurvey;
constexpr Pattern<"delete from  w_deviate_well where WellID='%s'"> kDeleteWell;
constexpr Pattern<"delete from  w_deviate_well where WellID in (%s)"> kDeleteWells;
constexpr Pattern<"delete from w_deviate_well where exists( select wellid from w_well_data where "
                  "w_well_data.wellid = w_deviate_well.wellid and  w_well_data.ProjectName = '%s' )">
    kDeleteProject;

constexpr const char* kTable = "w_deviate_well";

// The arrays in table order; the first that cannot be read ends the read.
const ColumnTable<DeviationSurvey> kSurveyColumns{kTable, {
    Col("WellID", &DeviationSurvey::WellID),
    Col("Md", &DeviationSurvey::Md),
    Col("Azimuth", &DeviationSurvey::Azimuth),
    Col("Inclination", &DeviationSurvey::Inclination),
    Col("Xoffset", &DeviationSurvey::Xoffset),
    Col("Yoffset", &DeviationSurvey::Yoffset),
    Col("Xcoor", &DeviationSurvey::Xcoor),
    Col("Ycoor", &DeviationSurvey::Ycoor),
    Col("Tvd", &DeviationSurvey::Tvd),
    Col("Tvdss", &DeviationSurvey::Tvdss),
}};

const ReplaceSteps kSaveOne{kTable};
const ReplaceSteps kSaveAfterDelete{kTable, Probe::AfterDelete};

constexpr bool kArrays = true;

}  // namespace

class CDeviateData final : public CDataObject<IDeviateData> {
 public:
  bool GetSurveyedWellIDs(const char* projectName, std::vector<std::string>& wellIDs) override {
    return ListColumn(kSurveyedWells(projectName), "WellID", wellIDs, Fill::Clear).found();
  }

  bool LoadSurveys(const std::vector<std::string>& wellIDs, std::vector<DeviationSurvey>& surveys) override {
    return LoadAll(kSelectWells(sql::QuoteEach(wellIDs)), kSurveyColumns, surveys, Fill::Clear, kArrays).found();
  }

  bool LoadSurvey(const char* wellID, DeviationSurvey& survey) override {
    if (!LoadOne(kSelectWell(wellID), kSurveyColumns, survey, kArrays)) return false;
    survey.WellID = wellID;  // the key as the caller spells it
    return true;
  }

  bool LoadProjectSurveys(const char* projectName, std::vector<DeviationSurvey>& surveys) override {
    return LoadAll(kSelectProject(projectName), kSurveyColumns, surveys, Fill::Clear, kArrays).found();
  }

  bool IsSurveyExist(const char* wellID) override { return Exists(kSurveyExists(wellID)); }

  bool SaveSurvey(const DeviationSurvey& survey) override {
    if (!KeyGiven(survey.WellID, kEmptyWell)) return false;
    const Statement remove = kDeleteWell(survey.WellID);
    if (!survey.Md.empty())
      return Replace(kSaveOne, remove, [&](CDbManage& db) { kSurveyColumns.AddRow(db, survey); });
    // A survey without stations removes the stored one and begins no rows; the
    // delete's own result is not looked at.
    if (remove.refused() || !TableAnswers(kTable)) return false;
    Execute(remove);
    return true;
  }

  // Which listed wells have a survey, appended to what `found` holds.
  bool GetWellsWithSurvey(int, const std::vector<std::string>& wellIDs, std::vector<std::string>& found) override {
    return ListColumn(kWellsWithSurvey(sql::QuoteEach(wellIDs)), "WellID", found, Fill::Append).found();
  }

  // Every listed well's row goes through DeleteSurveys, whose result is not
  // looked at; only surveys with Md, Tvd and Xcoor are written again.
  bool SaveSurveys(int, const std::vector<DeviationSurvey>& surveys) override {
    std::vector<std::string> wells;
    for (const auto& s : surveys) wells.push_back(s.WellID);
    if (kDeleteWells(sql::QuoteEach(wells)).refused()) return false;
    return ReplaceAfter(kSaveAfterDelete, Regardless([&] { DeleteSurveys(wells); }), [&](CDbManage& db) {
      for (const auto& s : surveys)
        if (!s.Md.empty() && !s.Tvd.empty() && !s.Xcoor.empty()) kSurveyColumns.AddRow(db, s);
    });
  }

  bool DeleteSurvey(const char* wellID) override {
    return KeyGiven(wellID, kEmptyWell) && ExecuteOnTable(kTable, kDeleteWell(wellID));
  }

  bool DeleteSurveys(std::vector<std::string> wellIDs) override {
    return ExecuteOnTable(kTable, kDeleteWells(sql::QuoteEach(wellIDs)));
  }

  bool DeleteProjectSurveys(const char* projectName) override {
    return KeyGiven(projectName, kEmptyProject) && ExecuteOnTable(kTable, kDeleteProject(projectName));
  }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CDeviateData, IDeviateData)
