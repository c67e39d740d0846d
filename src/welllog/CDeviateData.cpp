#include "dbaccess/DataObject.h"
#include "dbaccess/RecordLists.h"
#include "dbaccess/TableStatements.h"
#include "petrodb/welllog/IDeviateData.h"

using petrodb::AfxMessageBox;
using petrodb::FieldReader;
using petrodb::FieldWriter;
using petrodb::ForEachRow;
using petrodb::sql::Format;
using petrodb::sql::QuoteEach;

class CDeviateData final : public petrodb::CDataObject<IDeviateData> {
 public:
  bool GetSurveyedWellIDs(const char* projectName, std::vector<std::string>& wellIDs) override;
  bool LoadSurveys(const std::vector<std::string>& wellIDs, std::vector<DeviationSurvey>& surveys) override;
  bool LoadSurvey(const char* wellID, DeviationSurvey& survey) override;
  bool LoadProjectSurveys(const char* projectName, std::vector<DeviationSurvey>& surveys) override;
  bool IsSurveyExist(const char* wellID) override;
  bool SaveSurvey(const DeviationSurvey& survey) override;
  bool GetWellsWithSurvey(int ignored, const std::vector<std::string>& wellIDs,
                          std::vector<std::string>& found) override;
  bool SaveSurveys(int ignored, const std::vector<DeviationSurvey>& surveys) override;
  bool DeleteSurvey(const char* wellID) override;
  bool DeleteSurveys(std::vector<std::string> wellIDs) override;
  bool DeleteProjectSurveys(const char* projectName) override;
  PETRODB_DATA_CLASS

 private:
  bool ReadIDs(const std::string& statement, std::vector<std::string>& ids);
  bool LoadList(const std::string& statement, std::vector<DeviationSurvey>& surveys);
};

PETRODB_REGISTER_CLASS(CDeviateData, IDeviateData)

namespace {

// The nine arrays in table order; the first that cannot be read stops the rest.
bool ReadArrays(CDbManage& row, DeviationSurvey& s) {
  FieldReader in(row);
  in("Md", s.Md)("Azimuth", s.Azimuth)("Inclination", s.Inclination)("Xoffset", s.Xoffset)("Yoffset", s.Yoffset)(
      "Xcoor", s.Xcoor)("Ycoor", s.Ycoor)("Tvd", s.Tvd)("Tvdss", s.Tvdss);
  return in.ok();
}

void WriteRow(CDbManage& db, const DeviationSurvey& s) {
  db.AddNew();
  FieldWriter out(db);
  out("WellID", s.WellID)("Md", s.Md)("Azimuth", s.Azimuth)("Inclination", s.Inclination)("Xoffset", s.Xoffset)(
      "Yoffset", s.Yoffset)("Xcoor", s.Xcoor)("Ycoor", s.Ycoor)("Tvd", s.Tvd)("Tvdss", s.Tvdss);
}

}  // namespace

bool CDeviateData::ReadIDs(const std::string& statement, std::vector<std::string>& ids) {
  CDbManage db(connectionString.c_str());
  return petrodb::SelectColumn(db, statement, "WellID", ids) == kRowsFound;
}

bool CDeviateData::LoadList(const std::string& statement, std::vector<DeviationSurvey>& surveys) {
  CDbManage db(connectionString.c_str());
  bool complete = true;
  const auto result = ForEachRow(db, statement, true, [&](CDbManage& row) {
    DeviationSurvey s;
    complete = row.GetFieldValue("WellID", s.WellID) && ReadArrays(row, s);
    if (complete) surveys.push_back(std::move(s));
    return complete;
  });
  return result == kRowsFound && complete;
}

bool CDeviateData::GetSurveyedWellIDs(const char* projectName, std::vector<std::string>& wellIDs) {
  return ReadIDs(Format("select w_well_data.wellid from w_well_data where w_well_data.ProjectName = '%s' and "
                        "exists( select w_deviate_well.wellid from w_deviate_well where w_well_data.wellid = "
                        "w_deviate_well.wellid )  order by w_well_data.wellid ",
                        projectName),
                 wellIDs);
}

bool CDeviateData::LoadSurveys(const std::vector<std::string>& wellIDs, std::vector<DeviationSurvey>& surveys) {
  return LoadList(Format("select * from w_deviate_well where WellID in (%s)", QuoteEach(wellIDs)), surveys);
}

bool CDeviateData::LoadSurvey(const char* wellID, DeviationSurvey& survey) {
  CDbManage db(connectionString.c_str());
  if (db.GetDataFromDB(Format("select * from w_deviate_well where WellID='%s' ", wellID).c_str(), true) != kRowsFound)
    return false;
  survey.WellID = wellID;
  return ReadArrays(db, survey);
}

bool CDeviateData::LoadProjectSurveys(const char* projectName, std::vector<DeviationSurvey>& surveys) {
  return LoadList(Format("select * from w_deviate_well where exists ( select WellID from w_well_data where "
                         "ProjectName \t\t= '%s' and w_well_data.WellID = w_deviate_well.WellID )",
                         projectName),
                  surveys);
}

bool CDeviateData::IsSurveyExist(const char* wellID) {
  CDbManage db(connectionString.c_str());
  return db.GetDataFromDB(Format("select WellID from  w_deviate_well where WellID='%s'", wellID).c_str()) == kRowsFound;
}

bool CDeviateData::SaveSurvey(const DeviationSurvey& survey) {
  if (survey.WellID.empty()) {
    AfxMessageBox("井名称不能为空！");
    return false;
  }
  CDbManage db(connectionString.c_str());
  if (petrodb::TableMissing(db, "w_deviate_well")) return false;
  db.ExecuteSQL(Format("delete from  w_deviate_well where WellID='%s'", survey.WellID).c_str());
  // Saving a survey without stations removes the stored one.
  if (survey.Md.empty()) return true;
  db.BeginSaveData("w_deviate_well");
  WriteRow(db, survey);
  return db.SaveData();
}

bool CDeviateData::GetWellsWithSurvey(int, const std::vector<std::string>& wellIDs, std::vector<std::string>& found) {
  return ReadIDs(Format("select WellID from  w_deviate_well where WellID in (%s)", QuoteEach(wellIDs)), found);
}

bool CDeviateData::SaveSurveys(int, const std::vector<DeviationSurvey>& surveys) {
  std::vector<std::string> wells;
  for (const auto& s : surveys) wells.push_back(s.WellID);
  DeleteSurveys(wells);
  CDbManage db(connectionString.c_str());
  if (petrodb::TableMissing(db, "w_deviate_well")) return false;
  db.BeginSaveData("w_deviate_well");
  for (const auto& s : surveys)
    if (!s.Md.empty() && !s.Tvd.empty() && !s.Xcoor.empty()) WriteRow(db, s);
  return db.SaveData();
}

bool CDeviateData::DeleteSurvey(const char* wellID) {
  return petrodb::KeyGiven(wellID, "井名称不能为空！") &&
         petrodb::ExecuteOnTable(connectionString, "w_deviate_well",
                                 Format("delete from  w_deviate_well where WellID='%s'", wellID));
}

bool CDeviateData::DeleteSurveys(std::vector<std::string> wellIDs) {
  return petrodb::ExecuteOnTable(connectionString, "w_deviate_well",
                                 Format("delete from  w_deviate_well where WellID in (%s)", QuoteEach(wellIDs)));
}

bool CDeviateData::DeleteProjectSurveys(const char* projectName) {
  return petrodb::KeyGiven(projectName, "工区名称不能为空！") &&
         petrodb::ExecuteOnTable(
             connectionString, "w_deviate_well",
             Format("delete from w_deviate_well where exists( select wellid from w_well_data where "
                    "w_well_data.wellid = w_deviate_well.wellid and  w_well_data.ProjectName = '%s' )",
                    projectName));
}
