#pragma once
// The rows of layer production test reports (W_MARKER_TESTING_DATA), pointing at
// their header by TestID. Loads join the header for the row's well and behave as
// those of IStressTestSamplingData.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct MarkerTestRow {
  int TestID = 0;
  std::string TestingProgram;
  std::string TestNumber;
  double TestDuration = 0;
  std::string Cherries;  // the run within the programme; part of the row key, as text
  double BottomPressure = 0;
  double WellheadPressure = 0;
  double BottomTemperature = 0;
  double WellheadTemperature = 0;
  double OilFlow = 0;
  double GasFlow = 0;
  double WaterFlow = 0;
  std::string WellID;  // the header's well; loads only, empty when the header is gone

  bool operator==(const MarkerTestRow&) const = default;
};

class PETRODB_API IMarkerTestData : public IDataBase {
 public:
  // The report's rows of one testing programme.
  virtual bool LoadMarkerTestRows(int testID, const char* testingProgram, std::vector<MarkerTestRow>& rows) = 0;
  virtual bool LoadReportMarkerTestRows(int testID, std::vector<MarkerTestRow>& rows) = 0;
  virtual bool LoadProjectMarkerTestRows(const char* projectName, std::vector<MarkerTestRow>& rows) = 0;
  virtual bool MarkerTestRowExists(int testID, const char* testingProgram, const char* cherries) = 0;
  virtual bool SaveMarkerTestRows(const std::vector<MarkerTestRow>& rows) = 0;
  virtual bool DeleteMarkerTestRow(int testID, const char* testingProgram, const char* cherries) = 0;
  virtual bool DeleteMarkerTestRows(int testID) = 0;
  virtual bool DeleteProjectMarkerTestRows(const char* projectName) = 0;
};
