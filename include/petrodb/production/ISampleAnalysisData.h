#pragma once
// The rows of formation fluid sample analysis reports (W_SAMPLE_ANALYSIS_DATA),
// each pointing at its header (ISampleAnalysis) by AnalysisID. Loads join the
// header for the row's well.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct SampleAnalysisRow {
  int AnalysisID = 0;
  std::string SampleNumber;
  double SampleDepth = 0;
  double PreDrillFluidPressure = 0;
  double AftDrillFluidPressure = 0;
  double PreStrataPressure = 0;
  double AftStrataPressure = 0;
  double PumpPressure = 0;
  double PumpingTime = 0;
  double PumpingFluidVolume = 0;
  double SamplingTime = 0;
  double TungCapacity = 0;
  double TungGroundPressure = 0;
  double SampleVolume = 0;
  double OilVolume = 0;
  double WaterVolume = 0;
  std::string MixLiquidName;
  double MixLiquidVolume = 0;
  double SampleChloride = 0;
  double SampleResistivity = 0;
  double SampleResistivityTemp = 0;
  double SlurryChloride = 0;
  double SlurryResistivity = 0;
  double SlurryResistivityTemp = 0;
  double CO2 = 0;
  double C1 = 0;
  double C2 = 0;
  double C3 = 0;
  double iC4 = 0;
  double nC4 = 0;
  double N2 = 0;
  double MarkResistivity = 0;
  double MarkResistivityTemp = 0;
  std::string WellID;  // the header's well; loads only, empty when the header is gone

  bool operator==(const SampleAnalysisRow&) const = default;
};

class PETRODB_API ISampleAnalysisData : public IDataBase {
 public:
  // The rows of one report and sample number, emptied first. False when there
  // is none, or at the first row that cannot be read (the rows before it stay).
  virtual bool LoadSampleAnalysisRows(int analysisID, const char* sampleNumber,
                                      std::vector<SampleAnalysisRow>& rows) = 0;
  // True when the report has a row of the sample number at the depth (the depth
  // compared as its six-decimal text).
  virtual bool SampleAnalysisRowExists(int analysisID, const char* sampleNumber, double sampleDepth) = 0;
  // Appends the rows as they are (each names its report). A missing table shows
  // "样品分析表为空！" and is false; nothing is deleted first.
  virtual bool SaveSampleAnalysisRows(const std::vector<SampleAnalysisRow>& rows) = 0;
  // Deletes the row of the key; true also when there was none.
  virtual bool DeleteSampleAnalysisRow(int analysisID, const char* sampleNumber, double sampleDepth) = 0;
  // Deletes every row of the report.
  virtual bool DeleteSampleAnalysisRows(int analysisID) = 0;
  // Deletes the rows of every report whose header names the project, one
  // statement per identifier, all or none. True when there is no such header.
  virtual bool DeleteProjectSampleAnalysisRows(const char* projectName) = 0;
};
