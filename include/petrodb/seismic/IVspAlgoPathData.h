#pragma once
// The catalogue of VSP processing algorithms (vsp_algo_path): algorithms
// grouped into processing paths, per project type.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct VspAlgoPathRecord {
  std::string Algo_path;
  std::string Algo_name;
  std::string Proj_type;
  std::string Sort_order;  // stored as text: paths order by its text
  std::string Default_output;

  bool operator==(const VspAlgoPathRecord&) const = default;
};

// Lists and loads clear their output first and answer true when a row was
// found and every row read. Saves append; a missing table makes saves and
// deletes answer false silently.
class PETRODB_API IVspAlgoPathData : public IDataBase {
 public:
  // The type's paths by sort order (a path stored with two sort orders is listed twice).
  virtual bool GetAlgoPaths(const char* projType, std::vector<std::string>& paths) = 0;
  virtual bool GetPathAlgorithms(const char* projType, const char* path, std::vector<std::string>& names) = 0;
  virtual bool LoadAlgoCatalogue(const char* projType, std::vector<VspAlgoPathRecord>& records) = 0;
  // Selects Algo_name and Proj_type but reads Algo_name, Sort_order and
  // Default_output: the read of Sort_order always fails, so this answers false
  // with `records` empty.
  virtual bool LoadPathAlgorithms(const char* projType, const char* path, std::vector<VspAlgoPathRecord>& records) = 0;
  virtual bool SaveAlgoCatalogue(const std::vector<VspAlgoPathRecord>& records) = 0;
  virtual bool SaveAlgoPath(const VspAlgoPathRecord& record) = 0;
  virtual bool DeleteProjectTypeAlgos(const char* projType) = 0;
  // An empty path or name shows "算法路径或算法名称不能为空！".
  virtual bool DeleteAlgorithm(const char* projType, const char* path, const char* algoName) = 0;
  // An empty path shows "算法路径不能为空！".
  virtual bool DeleteAlgoPath(const char* projType, const char* path) = 0;
  virtual bool GetAlgorithmPath(const char* projType, const char* algoName, std::string& path) = 0;
  // Algo_path and Default_output of every algorithm of the type (other fields empty).
  virtual bool GetPathDefaultOutputs(const char* projType, std::vector<VspAlgoPathRecord>& records) = 0;
  virtual bool GetAlgoPathsOrdered(const char* projType, std::vector<std::string>& paths) = 0;
};
