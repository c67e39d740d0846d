#pragma once
// Formation pressure test sampling reports: one header row per report in
// W_STRESS_TESTING_SAMPLING, found by well, test time and table date, or by the
// identifier SamplingID that the database gives it. The rows live in
// W_STRESS_TESTING_SAMPLING_DATA (IStressTestSamplingData). The operations
// behave as those of ISampleAnalysis.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct StressTestSamplingRecord {
  std::string WellID;
  std::string TestTime;
  std::string TableDate;  // as text, compared byte for byte
  int SamplingID = 0;     // numbered by the database; a save reads it back
  std::string DescentTimes;
  std::string TotalCount;
  std::string TestCount;
  std::string SealseatCount;
  std::string EffectiveCount;
  std::string PumpIsolate;
  std::string SamplingCount;
  std::string Description;
  std::string TableCreator;
  std::string ProjectName;  // written from the save's project argument

  bool operator==(const StressTestSamplingRecord&) const = default;
};

class PETRODB_API IStressTestSampling : public IDataBase {
 public:
  virtual bool LoadStressTestSampling(const char* wellID, const char* testTime, const char* tableDate,
                                      StressTestSamplingRecord& header) = 0;
  virtual bool LoadWellStressTestSamplings(const char* wellID, std::vector<StressTestSamplingRecord>& headers) = 0;
  virtual bool LoadAllStressTestSamplings(std::vector<StressTestSamplingRecord>& headers) = 0;
  virtual bool ListStressTestSamplingWells(std::vector<std::string>& wellIDs) = 0;
  virtual bool GetStressTestSamplingWell(int samplingID, std::string& wellID) = 0;
  // Inserts a new header ("井号不能为空！" for an empty well, "保存数据库出错！"
  // for a failed insert) and reads its SamplingID back. The update of an
  // existing key is written with a comma before "where", which no engine
  // accepts: saving a header whose key exists fails, changing nothing.
  virtual bool SaveStressTestSampling(const char* projectName, StressTestSamplingRecord& header) = 0;
  // Each header as SaveStressTestSampling, all or none; an empty list is false.
  virtual bool SaveStressTestSamplings(const char* projectName, std::vector<StressTestSamplingRecord>& headers) = 0;
  // The report's rows by identifier first, then the header by natural key.
  virtual bool DeleteStressTestSampling(const StressTestSamplingRecord& header) = 0;
  virtual bool DeleteStressTestSamplingByID(int samplingID) = 0;
  // Headers only; their rows stay.
  virtual bool DeleteWellStressTestSamplings(const char* wellID) = 0;
  virtual bool DeleteAllStressTestSamplings() = 0;
};
