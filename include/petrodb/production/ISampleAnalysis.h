#pragma once
// Formation fluid sample analysis reports: one header row per report in
// W_SAMPLE_ANALYSIS, found by its natural key (well, sample number, table date)
// or by the identifier AnalysisID that the database gives it when it is first
// saved. The report's rows live in W_SAMPLE_ANALYSIS_DATA (ISampleAnalysisData).
//
// The other report kinds (IStressTestSampling, IMarkerTest, ICementationQuaEval)
// behave the same way with their own tables, keys and columns.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct SampleAnalysisRecord {
  std::string WellID;
  std::string SampleNumber;
  std::string TableDate;  // the report's date as text, compared byte for byte
  int AnalysisID = 0;     // numbered by the database; a save reads it back
  std::string ToolType;
  std::string TableCreator;
  std::string Description;
  std::string ProjectName;  // written from the save's project argument

  bool operator==(const SampleAnalysisRecord&) const = default;
};

class PETRODB_API ISampleAnalysis : public IDataBase {
 public:
  // The header with the natural key. False when there is none or a column
  // cannot be read (the fields read before it are set).
  virtual bool LoadSampleAnalysis(const char* wellID, const char* sampleNumber, const char* tableDate,
                                  SampleAnalysisRecord& header) = 0;
  // The well's headers, emptied first. False when there is none, or at the
  // first row that cannot be read (the rows before it stay).
  virtual bool LoadWellSampleAnalyses(const char* wellID, std::vector<SampleAnalysisRecord>& headers) = 0;
  // Every header, emptied first; false as for the well's headers.
  virtual bool LoadAllSampleAnalyses(std::vector<SampleAnalysisRecord>& headers) = 0;
  // The wells that have headers, ordered, each once. Emptied first; false when
  // there is none.
  virtual bool ListSampleAnalysisWells(std::vector<std::string>& wellIDs) = 0;
  // The well of an identifier; false (the text untouched) when there is none.
  virtual bool GetSampleAnalysisWell(int analysisID, std::string& wellID) = 0;
  // Saves a header under a project. An empty well shows "井号不能为空！" and a
  // missing table "样品分析表为空！", both false with nothing written. When the
  // natural key exists, its row is updated in place (tool, creator and
  // description; project, identifier and rows untouched); otherwise a row is
  // inserted, and a failed insert shows "保存数据库出错！". On success the
  // header's AnalysisID holds the database's identifier of the row; on failure
  // it is left as it was.
  virtual bool SaveSampleAnalysis(const char* projectName, SampleAnalysisRecord& header) = 0;
  // Saves each header as SaveSampleAnalysis does (the update written in its list
  // form), all or none: a failure leaves the database as it was. An empty list
  // shows "样品分析为空！" and is false.
  virtual bool SaveSampleAnalyses(const char* projectName, std::vector<SampleAnalysisRecord>& headers) = 0;
  // Deletes the report's rows (by the header's AnalysisID), then the header (by
  // its natural key). Both deletes run; true when both succeeded.
  virtual bool DeleteSampleAnalysis(const SampleAnalysisRecord& header) = 0;
  // Deletes the rows of the identifier, then its header; true when both succeeded.
  virtual bool DeleteSampleAnalysisByID(int analysisID) = 0;
  // Deletes the well's headers only; their rows stay.
  virtual bool DeleteWellSampleAnalyses(const char* wellID) = 0;
  // Deletes every header; the rows stay.
  virtual bool DeleteAllSampleAnalyses() = 0;
};
