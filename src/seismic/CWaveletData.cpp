#include "dbaccess/DataObject.h"
#include "petrodb/seismic/IWaveletData.h"

using namespace petrodb;

namespace {

constexpr const char* kTable = "s_wavelet_data";

constexpr Pattern<"select Distinct WaveletName from s_wavelet_data where ProjectID=%d order by WaveletName"> kNames;
constexpr Pattern<"select Distinct WaveletName from s_wavelet_data where ProjectID = %d and  Survey_Name='%s'order "
                  "by WaveletName">
    kSurveyNames;
constexpr Pattern<"select Distinct WaveletName  from s_wavelet_data where  ProjectID = %d  and WaveletType=%d order "
                  "by WaveletName ">
    kTypeNames;
constexpr Pattern<"select * from s_wavelet_data where ProjectID = %d and Survey_Name='%s' and WaveletName='%s' ">
    kLoadOne;
constexpr Pattern<"select * from s_wavelet_data where ProjectID=%d and Survey_Name='%s'"> kLoadSurvey;
constexpr Pattern<"select * from s_wavelet_data where ProjectID=%d"> kLoadProject;
constexpr Pattern<"select * from s_wavelet_data where  WaveletType=%d and ProjectID =%d"> kLoadType;
constexpr Pattern<"select * from s_wavelet_data where ProjectID=%d and  Survey_Name='%s' and WaveletType=%d ">
    kLoadSurveyType;
constexpr Pattern<"select Distinct WaveletName from s_wavelet_data where ProjectID = %d and Survey_Name='%s' and "
                  "WaveletName='%s'">
    kExists;
constexpr Pattern<"select WaveletName from s_wavelet_data where ProjectID = %d and Survey_Name='%s'and WaveletName "
                  "in (%s)">
    kExisting;
constexpr Pattern<"delete  from s_wavelet_data where ProjectID = %d and Survey_Name='%s' and WaveletName='%s'">
    kDeleteOne;
constexpr Pattern<"delete from s_wavelet_data where ProjectID = %d and Survey_Name='%s'and WaveletName in (%s)">
    kDeleteNamed;
constexpr Pattern<"delete from s_wavelet_data where ProjectID = %d"> kDeleteProject;
constexpr Pattern<"delete from s_wavelet_data where ProjectID = %d and Survey_Name='%s'"> kDeleteSurvey;

// The whole row. Param is written by the single save only, so it reads back
// empty where the batch saves left it NULL. Arrays: zero-length when empty.
const ColumnTable<WaveletRecord> kWaveletColumns{kTable, {
    Col("ProjectID", &WaveletRecord::ProjectID),
    Col("Survey_Name", &WaveletRecord::Survey_Name),
    Col("WaveletName", &WaveletRecord::WaveletName),
    Col("Description", &WaveletRecord::Description),
    Col("WaveletType", &WaveletRecord::WaveletType),
    Col("Param", &WaveletRecord::Param).Or(std::string()),
    Col("Timexcoor", &WaveletRecord::Timexcoor).EmptyAsZeroLength(),
    Col("Ampycoor", &WaveletRecord::Ampycoor).EmptyAsZeroLength(),
}};
// What the batch saves write: the row without Param.
const ColumnTable<WaveletRecord> kBatchColumns{kTable, {
    Col("ProjectID", &WaveletRecord::ProjectID),
    Col("Survey_Name", &WaveletRecord::Survey_Name),
    Col("WaveletName", &WaveletRecord::WaveletName),
    Col("Description", &WaveletRecord::Description),
    Col("WaveletType", &WaveletRecord::WaveletType),
    Col("Timexcoor", &WaveletRecord::Timexcoor).EmptyAsZeroLength(),
    Col("Ampycoor", &WaveletRecord::Ampycoor).EmptyAsZeroLength(),
}};
// What loading one wavelet by its key reads.
const ColumnTable<WaveletRecord> kBodyColumns{kTable, {
    Col("Description", &WaveletRecord::Description),
    Col("WaveletType", &WaveletRecord::WaveletType),
    Col("Timexcoor", &WaveletRecord::Timexcoor),
    Col("Ampycoor", &WaveletRecord::Ampycoor),
}};

const ReplaceSteps kSave{kTable};

}  // namespace

class CWaveletData final : public CDataObject<IWaveletData> {
 public:
  bool GetWaveletNames(int projectID, std::vector<std::string>& names) override {
    return Names(kNames(projectID), names);
  }
  bool GetSurveyWaveletNames(int projectID, const char* survey, std::vector<std::string>& names) override {
    return Names(kSurveyNames(projectID, survey), names);
  }
  bool GetTypeWaveletNames(int projectID, int type, std::vector<std::string>& names) override {
    return Names(kTypeNames(projectID, type), names);
  }

  bool LoadWavelet(int projectID, const char* survey, const char* name, WaveletRecord& wavelet) override {
    return LoadOne(kLoadOne(projectID, survey, name), kBodyColumns, wavelet, true);
  }
  bool LoadSurveyWavelets(int projectID, const char* survey, std::vector<WaveletRecord>& wavelets) override {
    return Wavelets(kLoadSurvey(projectID, survey), wavelets);
  }
  bool LoadProjectWavelets(int projectID, std::vector<WaveletRecord>& wavelets) override {
    return Wavelets(kLoadProject(projectID), wavelets);
  }
  bool LoadTypeWavelets(int projectID, int type, std::vector<WaveletRecord>& wavelets) override {
    return Wavelets(kLoadType(type, projectID), wavelets);
  }
  bool LoadSurveyTypeWavelets(int projectID, const char* survey, int type,
                              std::vector<WaveletRecord>& wavelets) override {
    return Wavelets(kLoadSurveyType(projectID, survey, type), wavelets);
  }

  bool IsWaveletExist(int projectID, const char* survey, const char* name) override {
    return Exists(kExists(projectID, survey, name));
  }

  bool SaveWavelet(const WaveletRecord& wavelet) override {
    return Save(kSave, [&](CDbManage& db) { kWaveletColumns.AddRow(db, wavelet); });
  }

  bool GetExistingWavelets(int projectID, const char* survey, const std::vector<std::string>& names,
                           std::vector<std::string>& existing) override {
    return Names(kExisting(projectID, survey, sql::QuoteEach(names)), existing);
  }

  bool SaveWavelets(const std::vector<WaveletRecord>& wavelets) override { return SaveBatch(wavelets); }
  bool SaveSurveyWavelets(const std::vector<WaveletRecord>& wavelets) override { return SaveBatch(wavelets); }

  bool DeleteWavelet(int projectID, const char* survey, const char* name) override {
    return ExecuteOnTable(kTable, kDeleteOne(projectID, survey, name));
  }
  bool DeleteWavelets(int projectID, const char* survey, const std::vector<std::string>& names) override {
    return ExecuteOnTable(kTable, kDeleteNamed(projectID, survey, sql::QuoteEach(names)));
  }
  bool DeleteProjectWavelets(int projectID) override { return ExecuteOnTable(kTable, kDeleteProject(projectID)); }
  bool DeleteSurveyWavelets(int projectID, const char* survey) override {
    return ExecuteOnTable(kTable, kDeleteSurvey(projectID, survey));
  }
  PETRODB_DATA_CLASS

 private:
  bool Names(const Statement& s, std::vector<std::string>& names) const {
    return ListColumn(s, "WaveletName", names, Fill::Clear).found();
  }
  bool Wavelets(const Statement& s, std::vector<WaveletRecord>& wavelets) const {
    return LoadAll(s, kWaveletColumns, wavelets, Fill::Clear, true).found();
  }
  bool SaveBatch(const std::vector<WaveletRecord>& wavelets) const {
    return Save(kSave, [&](CDbManage& db) { kBatchColumns.AddRows(db, wavelets); });
  }
};

PETRODB_REGISTER_CLASS(CWaveletData, IWaveletData)
