#pragma once
// The general reader and writer of w_marker for any source (the kind of marker
// set a row belongs to), and of the marker attributes: their definitions per
// project and source (w_marker_attribute) and their values per well, marker
// and attribute (w_marker_attribute_data).
//
// Reads fill every stored column of MarkerRecord; a derived column that is
// null reads as -99999.0. Writes replace by key: a well's markers of one
// source, an attribute of one project and source, a value of one well, marker,
// attribute and source. Deletes of attribute values are limited to the wells
// of the given project. Statements splice values between quotes unescaped: a
// value holding a quote makes the operation fail as a statement that could not
// run.
//
// Slots: 0 the destructor, 1 SetConnection, 2 to 30 the operations below in
// order (numbered in their comments), 31 the class-information slot.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"
#include "petrodb/welllog/IMarkerData.h"

struct MarkerAttribute {
  std::string AttribName;
  std::string AttribType;  // free text for the applications ("double", "text", ...)
  std::string AttribDescription;
};

struct MarkerAttributeValue {
  std::string WellID;
  std::string MarkerName;
  std::string AttribName;
  std::string AttribValue;
};

class PETRODB_API ISourceData : public IDataBase {
 public:
  // 2: the distinct sources that have markers of some well.
  virtual bool GetSources(std::vector<std::string>& sources) = 0;
  // 3: IDs of the project's wells with markers of the source, ordered by ID.
  virtual bool GetMarkerWellIDs(const char* source, const char* projectName, std::vector<std::string>& wellIDs) = 0;
  // 4: distinct marker names of the source in the project's wells, in name order.
  virtual bool GetProjectMarkerNames(const char* source, const char* projectName,
                                     std::vector<std::string>& names) = 0;
  // 5: the well's marker names of the source, ordered by TopMD.
  virtual bool GetWellMarkerNames(const char* source, const char* wellID, std::vector<std::string>& names) = 0;
  // 6: markers of that name in the project's wells, ordered by TopMD.
  virtual bool LoadMarkersByName(const char* source, const char* markerName, const char* projectName,
                                 std::vector<MarkerRecord>& records) = 0;
  // 7: the listed wells' markers (only those named `markerName` unless it is
  // empty or null), ordered by TopMD.
  virtual bool LoadMarkersOfWells(const char* source, const std::vector<std::string>& wellIDs,
                                  const char* markerName, std::vector<MarkerRecord>& records) = 0;
  // 8: ordered by TopMD.
  virtual bool LoadWellMarkers(const char* source, const char* wellID, std::vector<MarkerRecord>& records) = 0;
  // 9: ordered by well and TopMD.
  virtual bool LoadProjectMarkers(const char* source, const char* projectName,
                                  std::vector<MarkerRecord>& records) = 0;
  // 10
  virtual bool HasMarkers(const char* source, const char* wellID) = 0;
  // 11: replaces the well's markers of the source with the record's, every
  // column as given, SubmitTime stamped now. An empty list only deletes.
  virtual bool SaveWellMarkers(const char* source, const WellMarkers& wellMarkers) = 0;
  // 12: slot 11 for each element; false at the first failure.
  virtual bool SaveMarkers(const char* source, const std::vector<WellMarkers>& list) = 0;
  // 13 to 16: deletes of one source's markers.
  virtual bool DeleteWellMarkers(const char* source, const char* wellID) = 0;
  virtual bool DeleteMarkersOfWells(const char* source, const std::vector<std::string>& wellIDs) = 0;
  virtual bool DeleteProjectMarkers(const char* source, const char* projectName) = 0;
  virtual bool DeleteMarker(const char* source, const char* wellID, const char* markerName) = 0;
  // 17: moves a marker's top; the derived columns are left as they are.
  virtual bool MoveMarkerTop(const char* source, const char* wellID, const char* markerName, double topMD) = 0;
  // 18 to 22: attribute definitions of a project and source.
  virtual bool GetAttributes(const char* projectName, const char* source, std::vector<MarkerAttribute>& attributes) = 0;
  virtual bool SaveAttribute(const char* projectName, const char* source, const MarkerAttribute& attribute) = 0;
  // Replaces all definitions of the project and source.
  virtual bool SaveAttributes(const char* projectName, const char* source,
                              const std::vector<MarkerAttribute>& attributes) = 0;
  // Removes the definition only; its values stay until deleted (slot 29).
  virtual bool DeleteAttribute(const char* projectName, const char* source, const char* attribName) = 0;
  virtual bool DeleteAttributes(const char* projectName, const char* source) = 0;
  // 23 to 25: attribute values.
  virtual bool LoadMarkerAttributeValues(const char* source, const char* wellID, const char* markerName,
                                         std::vector<MarkerAttributeValue>& values) = 0;
  virtual bool LoadWellAttributeValues(const char* source, const char* wellID,
                                       std::vector<MarkerAttributeValue>& values) = 0;
  // Values of one attribute in the project's wells, ordered by well and marker.
  virtual bool LoadProjectAttributeValues(const char* projectName, const char* source, const char* attribName,
                                          std::vector<MarkerAttributeValue>& values) = 0;
  // 26: replaces each (well, marker, attribute) value of the source.
  virtual bool SaveAttributeValues(const char* source, const std::vector<MarkerAttributeValue>& values) = 0;
  // 27 to 30: deletes of values, limited to the project's wells.
  virtual bool DeleteAttributeValue(const char* projectName, const char* source, const char* wellID,
                                    const char* markerName, const char* attribName) = 0;
  virtual bool DeleteWellAttributeValues(const char* projectName, const char* source, const char* wellID) = 0;
  virtual bool DeleteAttributeValues(const char* projectName, const char* source, const char* attribName) = 0;
  virtual bool DeleteProjectAttributeValues(const char* projectName, const char* source) = 0;
};
