#pragma once
// Headers of water-injection pipeline networks (n_pipenet), one row a network.
// A network's nodes and pipes are kept by INode and IPipe: saving or deleting a
// header leaves them alone, so a whole network is saved and deleted in three
// steps (header, nodes, pipes).
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct PipenetRecord {
  std::string PipenetName;
  std::string UnitName;     // the production unit that owns the network
  std::string CreateDate;   // set by the database when the row is written; never written by SavePipenet
  std::string Creator;
  std::string Memo;
  double LeftMargin = 0;    // drawing layout
  double TopMargin = 0;
  double Ratio = 0;
  double Xmin = 0;          // extent
  double Xmax = 0;
  double Ymin = 0;
  double Ymax = 0;
  int SubNum = 0;
  int StationbreachNum = 0;
  std::string PipenetType;
};

class PETRODB_API IPipenet : public IDataBase {
 public:
  // The header of one network. False when there is no such network or one of its
  // fields up to StationbreachNum cannot be read (fields read before it are set);
  // an unreadable PipenetType leaves the record's value and still succeeds.
  virtual bool LoadPipenet(const char* name, PipenetRecord& record) = 0;
  // Network names ordered by name. The list is emptied first; false when there
  // are none (or the table cannot be read).
  virtual bool ListPipenetNames(std::vector<std::string>& names) = 0;
  virtual bool ListPipenetNamesByType(const char* type, std::vector<std::string>& names) = 0;
  virtual bool ListPipenetNamesByUnitAndType(const char* unit, const char* type, std::vector<std::string>& names) = 0;
  // The distinct unit names, ordered.
  virtual bool ListUnitNames(std::vector<std::string>& units) = 0;
  // Whole headers ordered by name. The list is emptied first; false when none is
  // found, or at the first row that cannot be read (the rows before it stay).
  virtual bool LoadAllPipenets(std::vector<PipenetRecord>& records) = 0;
  virtual bool LoadPipenetsByUnit(const char* unit, std::vector<PipenetRecord>& records) = 0;
  virtual bool LoadPipenetsByType(const char* type, std::vector<PipenetRecord>& records) = 0;
  // True when the table can be read and holds the network.
  virtual bool PipenetExists(const char* name) = 0;
  // Replaces the header of the same name (delete through DeletePipenet, then
  // insert). An empty name shows "管网名称不能为空。" and touches nothing; a
  // missing table or a failed delete fails silently before anything is written.
  virtual bool SavePipenet(const PipenetRecord& record) = 0;
  // Deletes the header; false for a null or empty name (nothing touched) or a
  // missing table, otherwise the delete's result (true also when there was no row).
  virtual bool DeletePipenet(const char* name) = 0;
};
