#pragma once
// Formation markers (well tops) in w_marker, as the geological layering sees
// them: every statement is restricted to the source "地质分层".
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

// The depth that marks a missing top or bottom; it is never converted.
inline constexpr double kNullDepth = -99999.0;

// One marker interval of a well: a row of w_marker without its Source.
struct MarkerRecord {
  std::string WellID;
  std::string MarkerName;
  double TopMD = kNullDepth;
  double BottomMD = kNullDepth;
  std::string Description;
  // Derived from the measured depths when the geological layering is saved;
  // read back by ISourceData (IMarkerData's loads read only the five above).
  double TopTVD = kNullDepth;
  double BottomTVD = kNullDepth;
  double TopTVDSS = kNullDepth;  // positive below sea level
  double BottomTVDSS = kNullDepth;
  double XCoor = kNullDepth;  // map position of the top
  double YCoor = kNullDepth;
  double Thickness = kNullDepth;  // BottomMD - TopMD; not stored
  std::string YSDM;               // free code carried for the suite's applications
  std::string SubmitTime;         // "YYYY-MM-DD HH:MM:SS", stamped on save
};

struct WellMarkers {
  std::string WellID;
  std::vector<MarkerRecord> Markers;
};

class PETRODB_API IMarkerData : public IDataBase {
 public:
  // IDs of the project's wells with markers, ordered by ID.
  virtual bool GetMarkerWellIDs(const char* projectName, std::vector<std::string>& wellIDs) = 0;
  // Distinct marker names used in the project, in name order.
  virtual bool GetProjectMarkerNames(const char* projectName, std::vector<std::string>& names) = 0;
  virtual bool GetWellMarkerNames(const char* wellID, std::vector<std::string>& names) = 0;
  // Every marker of that name, ordered by TopMD. The project only has to own
  // some well: the markers of other projects' wells come too.
  virtual bool LoadMarkersByName(const char* markerName, const char* projectName,
                                 std::vector<MarkerRecord>& records) = 0;
  // The markers of the listed wells (only those named `markerName` when it is
  // not empty), ordered by TopMD.
  virtual bool LoadMarkersOfWells(const std::vector<std::string>& wellIDs, const char* markerName,
                                  std::vector<MarkerRecord>& records) = 0;
  virtual bool LoadMarkersOfWells(const std::vector<std::string>& wellIDs, std::vector<MarkerRecord>& records) = 0;
  virtual bool LoadWellMarkers(const char* wellID, std::vector<MarkerRecord>& records) = 0;
  // Ordered by well and TopMD.
  virtual bool LoadProjectMarkers(const char* projectName, std::vector<MarkerRecord>& records) = 0;
  virtual bool HasMarkers(const char* wellID) = 0;
  // Computes vertical depths and the map position from the well's head and
  // deviation survey, then replaces the well's markers. False when the well ID
  // is empty or the depth converter is not available.
  virtual bool SaveWellMarkers(const WellMarkers& wellMarkers) = 0;
  // The project's well IDs that have markers.
  virtual bool GetWellsWithMarkers(const char* projectName, std::vector<std::string>& wellIDs) = 0;
  // Deletes the markers of every listed well, then saves each well.
  virtual bool SaveMarkers(int ignored, const std::vector<WellMarkers>& list) = 0;
  virtual bool DeleteWellMarkers(const char* wellID) = 0;
  virtual bool DeleteMarkersOfWells(const std::vector<std::string>& wellIDs) = 0;
  virtual bool DeleteProjectMarkers(const char* projectName) = 0;
};
