#pragma once
// Seismic wavelets (s_wavelet_data), scoped by the integer project ID and the
// survey name.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct WaveletRecord {
  int ProjectID = 0;
  std::string Survey_Name;
  std::string WaveletName;
  std::string Description;
  int WaveletType = 0;  // a category of the caller's
  std::string Param;    // written by SaveWavelet only; reads back empty otherwise
  std::vector<double> Timexcoor;
  std::vector<double> Ampycoor;

  bool operator==(const WaveletRecord&) const = default;
};

// Lists and loads clear their output first and answer true when they found at
// least one row and could read every row (rows read before a bad one stay).
// Saves append (nothing is deleted first) and answer false when the table is
// missing or the rows cannot be written. Deletes answer the statement's result.
class PETRODB_API IWaveletData : public IDataBase {
 public:
  virtual bool GetWaveletNames(int projectID, std::vector<std::string>& names) = 0;
  virtual bool GetSurveyWaveletNames(int projectID, const char* survey, std::vector<std::string>& names) = 0;
  virtual bool GetTypeWaveletNames(int projectID, int type, std::vector<std::string>& names) = 0;
  // Fills Description, WaveletType and the two arrays; the other fields keep
  // what the caller put there. False when the wavelet is not stored.
  virtual bool LoadWavelet(int projectID, const char* survey, const char* name, WaveletRecord& wavelet) = 0;
  virtual bool LoadSurveyWavelets(int projectID, const char* survey, std::vector<WaveletRecord>& wavelets) = 0;
  virtual bool LoadProjectWavelets(int projectID, std::vector<WaveletRecord>& wavelets) = 0;
  virtual bool LoadTypeWavelets(int projectID, int type, std::vector<WaveletRecord>& wavelets) = 0;
  virtual bool LoadSurveyTypeWavelets(int projectID, const char* survey, int type,
                                      std::vector<WaveletRecord>& wavelets) = 0;
  virtual bool IsWaveletExist(int projectID, const char* survey, const char* name) = 0;
  // Appends one row, Param included.
  virtual bool SaveWavelet(const WaveletRecord& wavelet) = 0;
  // The listed names that the survey has (one entry per row).
  virtual bool GetExistingWavelets(int projectID, const char* survey, const std::vector<std::string>& names,
                                   std::vector<std::string>& existing) = 0;
  // Append one row per record in one batch, without Param.
  virtual bool SaveWavelets(const std::vector<WaveletRecord>& wavelets) = 0;
  virtual bool SaveSurveyWavelets(const std::vector<WaveletRecord>& wavelets) = 0;
  virtual bool DeleteWavelet(int projectID, const char* survey, const char* name) = 0;
  virtual bool DeleteWavelets(int projectID, const char* survey, const std::vector<std::string>& names) = 0;
  virtual bool DeleteProjectWavelets(int projectID) = 0;
  virtual bool DeleteSurveyWavelets(int projectID, const char* survey) = 0;
};
