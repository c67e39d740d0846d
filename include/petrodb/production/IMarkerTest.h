#pragma once
// Layer (marker) production test reports: one header row per report in
// W_MARKER_TESTING, found by well, test number and table date, or by the
// identifier TestID that the database gives it. The rows live in
// W_MARKER_TESTING_DATA (IMarkerTestData). The operations behave as those of
// ISampleAnalysis.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct MarkerTestRecord {
  std::string WellID;
  std::string TestNumber;
  std::string TableDate;  // as text, compared byte for byte
  int TestID = 0;         // numbered by the database; a save reads it back
  std::string BeginWellSection;
  std::string EndWellSection;
  std::string Begintime;
  std::string Endtime;
  std::string CumOilProduction;
  std::string CumGasProduction;
  std::string CumWaterProduction;
  std::string PressureGaugeDepth;
  std::string HydraulicLength;
  std::string Description;
  std::string TableCreator;
  std::string Assessor;
  std::string ProjectName;  // written from the save's project argument

  bool operator==(const MarkerTestRecord&) const = default;
};

class PETRODB_API IMarkerTest : public IDataBase {
 public:
  virtual bool LoadMarkerTest(const char* wellID, const char* testNumber, const char* tableDate,
                              MarkerTestRecord& header) = 0;
  virtual bool LoadWellMarkerTests(const char* wellID, std::vector<MarkerTestRecord>& headers) = 0;
  virtual bool LoadAllMarkerTests(std::vector<MarkerTestRecord>& headers) = 0;
  virtual bool ListMarkerTestWells(std::vector<std::string>& wellIDs) = 0;
  virtual bool GetMarkerTestWell(int testID, std::string& wellID) = 0;
  // Inserts a new header and reads its TestID back. The update of an existing
  // key is written with a comma before "where", which no engine accepts: saving
  // a header whose key exists fails, changing nothing.
  virtual bool SaveMarkerTest(const char* projectName, MarkerTestRecord& header) = 0;
  virtual bool SaveMarkerTests(const char* projectName, std::vector<MarkerTestRecord>& headers) = 0;
  virtual bool DeleteMarkerTest(const MarkerTestRecord& header) = 0;
  virtual bool DeleteMarkerTestByID(int testID) = 0;
  virtual bool DeleteWellMarkerTests(const char* wellID) = 0;
  virtual bool DeleteAllMarkerTests() = 0;
};
