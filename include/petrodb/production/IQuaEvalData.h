#pragma once
// The rows of cement bond quality evaluation reports (W_QUALITY_EVALUATION_DATA),
// pointing at their header by EvaluationID. Loads join the header for the row's
// well and behave as those of IStressTestSamplingData.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct QuaEvalRow {
  int EvaluationID = 0;
  double TopDepth = 0;
  double BottomDepth = 0;
  double Thickness = 0;
  double ATAV = 0;
  double ATMN = 0;
  double ATMX = 0;
  double AMAV = 0;
  double CementStrength = 0;
  std::string VDL;
  std::string Cementing;  // the bond grade
  std::string Description;
  std::string WellID;  // the header's well; loads only, empty when the header is gone

  bool operator==(const QuaEvalRow&) const = default;
};

class PETRODB_API IQuaEvalData : public IDataBase {
 public:
  // Every row of the report (rows whose header is gone included).
  virtual bool LoadQuaEvalRows(int evaluationID, std::vector<QuaEvalRow>& rows) = 0;
  // Every row of the reports whose header names the project.
  virtual bool LoadProjectQuaEvalRows(const char* projectName, std::vector<QuaEvalRow>& rows) = 0;
  // Depths compared as their six-decimal text.
  virtual bool QuaEvalRowExists(int evaluationID, double topDepth, double bottomDepth) = 0;
  // Appends the rows as they are. A missing table shows "测压取样数据表为空！"
  // and is false.
  virtual bool SaveQuaEvalRows(const std::vector<QuaEvalRow>& rows) = 0;
  virtual bool DeleteQuaEvalRow(int evaluationID, double topDepth, double bottomDepth) = 0;
  virtual bool DeleteQuaEvalRows(int evaluationID) = 0;
  virtual bool DeleteProjectQuaEvalRows(const char* projectName) = 0;
};
