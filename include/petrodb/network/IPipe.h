#pragma once
// Pipes of pipeline networks (n_pipes), keyed by network and pipe name. A pipe
// names its two end nodes; nothing checks that they exist.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

// Pipe types: 0 station outlet trunk line, 1 injection trunk line, 2 branch
// line, 3 tie line.
struct PipeRecord {
  std::string PipenetName;
  std::string PipeName = "(无)";
  std::string Node1 = "(无)";  // start node
  std::string Node2 = "(无)";  // end node
  int PipeType = 0;
  double Diameter = 0;
  double Thickness = 0;
  double Length = 0;
  double InThkness = 0;     // lining thickness
  double InCoarseness = 0;  // inner roughness
  int PNum = 0;             // parallel pipes
  std::string Medium;
  std::string Material;
  std::string Memo;
  std::string TypeName;  // filled from PipeType when read ("出站干线" ...; empty for other numbers); not stored
  std::string AppendID;
  int Status = 1;
};

class PETRODB_API IPipe : public IDataBase {
 public:
  // One pipe. False when there is none or a field cannot be read (the fields
  // read before it are set).
  virtual bool LoadPipe(const char* network, const char* pipe, PipeRecord& record) = 0;
  // As LoadPipe, also matching the diameter as its three-decimal text
  // (100.0004 asks for 100.000).
  virtual bool LoadPipeOfDiameter(const char* network, const char* pipe, double diameter, PipeRecord& record) = 0;
  // A network's pipes. Lists are emptied first; false when none is found, or at
  // the first row that cannot be read (the rows before it stay).
  virtual bool LoadPipes(const char* network, std::vector<PipeRecord>& records) = 0;
  // The network's distinct diameters, ascending.
  virtual bool ListDiameters(const char* network, std::vector<double>& diameters) = 0;
  virtual bool LoadPipesOfType(const char* network, int pipeType, std::vector<PipeRecord>& records) = 0;
  virtual bool PipeExists(const char* network, const char* pipe) = 0;
  // Replaces the pipe of the same network and name. Empty names show
  // "管网名称不能为空！" or "管网管子名称不能为空！", a missing table
  // "管网管子数据表为空！", a failed write "保存数据库出错！"; each is false and
  // leaves the table as it was.
  virtual bool SavePipe(const PipeRecord& record) = 0;
  // Appends every pipe under `network`; deletes nothing first. An empty network
  // shows "管网名称不能为空！".
  virtual bool SavePipes(const char* network, const std::vector<PipeRecord>& records) = 0;
  // Deletes all pipes of the network; an empty name shows "管网名称不能为空！".
  virtual bool DeletePipenetPipes(const char* network) = 0;
  // Deletes one pipe; true also when there was none. Empty names show their message.
  virtual bool DeletePipe(const char* network, const char* pipe) = 0;
  // Deletes each named pipe; true when every delete succeeded (all are tried).
  virtual bool DeletePipes(const char* network, const std::vector<std::string>& pipes) = 0;
};
