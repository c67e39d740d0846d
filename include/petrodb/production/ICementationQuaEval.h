#pragma once
// Cement bond quality evaluation reports: one header row per report in
// W_CEMENT_QUALITY_EVALUATION, found by well, table date and tested well section,
// or by the identifier EvaluationID that the database gives it. The rows live
// in W_QUALITY_EVALUATION_DATA (IQuaEvalData). The operations behave as those
// of ISampleAnalysis.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct CementationQuaEvalRecord {
  std::string WellID;
  std::string TableDate;  // as text, compared byte for byte
  std::string TestWellSection;
  int EvaluationID = 0;  // numbered by the database; a save reads it back
  std::string CasingSize;
  std::string TechRemark;
  std::string PresEvaluation;
  double TeeDepth = 0;
  double BarDepth = 0;
  std::string CementDepth;
  std::string TransSect;
  std::string ShortCase1;
  std::string ShortCase2;
  std::string MarkDepth;
  std::string Appraiser;
  std::string Assessor;
  std::string ProjectName;  // written from the save's project argument

  bool operator==(const CementationQuaEvalRecord&) const = default;
};

class PETRODB_API ICementationQuaEval : public IDataBase {
 public:
  virtual bool LoadCementationQuaEval(const char* wellID, const char* tableDate, const char* testWellSection,
                                      CementationQuaEvalRecord& header) = 0;
  virtual bool LoadWellCementationQuaEvals(const char* wellID, std::vector<CementationQuaEvalRecord>& headers) = 0;
  virtual bool LoadAllCementationQuaEvals(std::vector<CementationQuaEvalRecord>& headers) = 0;
  virtual bool ListCementationQuaEvalWells(std::vector<std::string>& wellIDs) = 0;
  virtual bool GetCementationQuaEvalWell(int evaluationID, std::string& wellID) = 0;
  // Inserts a new header and reads its EvaluationID back. The update of an
  // existing key is written with a comma before "where", which no engine
  // accepts: saving a header whose key exists fails, changing nothing.
  virtual bool SaveCementationQuaEval(const char* projectName, CementationQuaEvalRecord& header) = 0;
  virtual bool SaveCementationQuaEvals(const char* projectName, std::vector<CementationQuaEvalRecord>& headers) = 0;
  virtual bool DeleteCementationQuaEval(const CementationQuaEvalRecord& header) = 0;
  virtual bool DeleteCementationQuaEvalByID(int evaluationID) = 0;
  virtual bool DeleteWellCementationQuaEvals(const char* wellID) = 0;
  virtual bool DeleteAllCementationQuaEvals() = 0;
};
