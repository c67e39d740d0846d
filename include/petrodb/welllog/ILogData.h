#pragma once
// Log curves of wells (w_log_data): one row per curve per well, every curve a
// whole array of samples indexed by a depth curve of the same well.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

// One curve in memory.
struct LogCurve {
  std::string CurveName;
  std::string Measure;  // unit or measure name; also selects curves by kind
  // The entry of the same WellLog's list that indexes this curve; a depth curve
  // points to itself; null when unknown. Not owned.
  LogCurve* DepthCurve = nullptr;
  std::vector<double> Values;  // sample i belongs to sample i of the depth curve
};

// The curves of one well and the depth curves that index them, in one list.
//
// Every DepthCurve pointer points into this record's own Curves (or is null).
// Copying a WellLog re-links the copy's pointers into the copy's list; moving
// keeps the list's storage, so the pointers stay valid. Appending to Curves
// may reallocate it: set the links (Link) after the last append.
struct PETRODB_API WellLog {
  std::string WellID;
  double NullValue = 0.0;  // one value for the whole record
  std::vector<LogCurve> Curves;

  WellLog() = default;
  WellLog(const WellLog& other);
  WellLog& operator=(const WellLog& other);
  WellLog(WellLog&&) noexcept = default;
  WellLog& operator=(WellLog&&) noexcept = default;

  // The entry named `name`, or null.
  LogCurve* Find(const std::string& name);
  // Points each curve at the entry named by depthNames[i] (null when absent).
  void Link(const std::vector<std::string>& depthNames);
};

class PETRODB_API ILogData : public IDataBase {
 public:
  // Distinct names of all non-depth curves of the database, in name order.
  virtual bool GetAllCurveNames(std::vector<std::string>& names) = 0;
  // IDs of the project's wells that have curves, ordered by ID.
  virtual bool GetLoggedWellIDs(const char* projectName, std::vector<std::string>& wellIDs) = 0;
  // The well's curves whose Measure is one of `measures`, in name order.
  virtual bool GetCurveNamesByMeasure(const char* wellID, const std::vector<std::string>& measures,
                                      std::vector<std::string>& curveNames) = 0;
  // Every row of the well as (name, depth curve name), in name order.
  virtual bool GetCurveAndDepthNames(const char* wellID, std::vector<std::string>& curveNames,
                                     std::vector<std::string>& depthCurveNames) = 0;
  virtual bool GetDepthCurveNames(const char* wellID, std::vector<std::string>& depthCurveNames) = 0;
  // Drops depth curves that no curve uses any more, then loads the rest.
  virtual bool LoadDepthCurves(const char* wellID, WellLog& log) = 0;
  // One record per well that has the curve: the curve and its depth curve.
  virtual bool LoadCurveOfWells(const std::vector<std::string>& wellIDs, const char* curveName,
                                std::vector<WellLog>& logs) = 0;
  // The depth curve first, the curve second.
  virtual bool LoadCurve(const char* wellID, const char* curveName, WellLog& log) = 0;
  // The named curves and all depth curves that they use.
  virtual bool LoadCurves(const char* wellID, const std::vector<std::string>& curveNames, WellLog& log) = 0;
  // Drops orphan depth curves, then loads every curve of the well.
  virtual bool LoadWellLog(const char* wellID, WellLog& log) = 0;
  virtual bool LoadProjectLogs(const char* projectName, std::vector<WellLog>& logs) = 0;
  virtual bool LoadCurveOfAllWells(const char* curveName, std::vector<WellLog>& logs) = 0;
  // Which of the record's curve names already have rows for its well.
  virtual bool GetStoredCurveNames(const WellLog& log, std::vector<std::string>& storedNames) = 0;
  // Replaces the rows of the record's curves; the session's save result.
  virtual bool SaveWellLog(const WellLog& log) = 0;
  // Replaces all curves of every listed well. The rows are written when the
  // operation's session closes.
  virtual bool SaveWellLogs(int ignored, const std::vector<WellLog>& logs) = 0;
  // Deletes one curve and its depth curve when nothing else uses it.
  virtual bool DeleteCurve(const char* wellID, const char* curveName) = 0;
  virtual bool DeleteCurves(const char* wellID, const std::vector<std::string>& curveNames) = 0;
  virtual bool DeleteWellLog(const char* wellID) = 0;
  virtual bool DeleteWellLogs(const std::vector<std::string>& wellIDs) = 0;
  virtual bool DeleteProjectLogs(const char* projectName) = 0;
  virtual bool IsCurveExist(const char* wellID, const char* curveName) = 0;
  // flags[i] is 1 where curveNames[i] has a row (the first of equal names only).
  virtual bool CheckCurvesExist(const char* wellID, const std::vector<std::string>& curveNames,
                                std::vector<int>& flags) = 0;
};
