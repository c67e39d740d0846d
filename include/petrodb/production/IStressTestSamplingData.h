#pragma once
// The rows of formation pressure test sampling reports
// (W_STRESS_TESTING_SAMPLING_DATA), pointing at their header by SamplingID.
// Loads join the header for the row's well and empty the list first; they are
// false when there is no row, or at the first row that cannot be read.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct StressTestSamplingRow {
  int SamplingID = 0;
  std::string SequenceNum;
  double MD = 0;
  double TVD = 0;
  double PreMudColumnPressure = 0;
  double PressureValue = 0;
  double StrataPressure = 0;
  double AfterMudColumnPressure = 0;
  std::string FluidityEstimate;
  double StrataPressureCoefficient = 0;
  double FormationTemperature = 0;
  std::string SpotPressureType;
  std::string EvaluatePermeability;
  std::string Description;
  std::string WellID;  // the header's well; loads only, empty when the header is gone

  bool operator==(const StressTestSamplingRow&) const = default;
};

class PETRODB_API IStressTestSamplingData : public IDataBase {
 public:
  // The report's rows at a measured depth.
  virtual bool LoadStressTestSamplingRows(int samplingID, double md, std::vector<StressTestSamplingRow>& rows) = 0;
  // Every row of the report.
  virtual bool LoadReportStressTestSamplingRows(int samplingID, std::vector<StressTestSamplingRow>& rows) = 0;
  // Every row of the reports whose header names the project.
  virtual bool LoadProjectStressTestSamplingRows(const char* projectName,
                                                 std::vector<StressTestSamplingRow>& rows) = 0;
  virtual bool StressTestSamplingRowExists(int samplingID, const char* sequenceNum, double md) = 0;
  // Appends the rows as they are; a missing table is false.
  virtual bool SaveStressTestSamplingRows(const std::vector<StressTestSamplingRow>& rows) = 0;
  virtual bool DeleteStressTestSamplingRow(int samplingID, const char* sequenceNum, double md) = 0;
  virtual bool DeleteStressTestSamplingRows(int samplingID) = 0;
  // One delete per identifier of the project's headers, all or none.
  virtual bool DeleteProjectStressTestSamplingRows(const char* projectName) = 0;
  // Moves every row of one report to another identifier.
  virtual bool MoveStressTestSamplingRows(int fromSamplingID, int toSamplingID) = 0;
};
