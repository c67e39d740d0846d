#pragma once
// Injection wells' injectivity lines (w_inj_index), one row per well (Jh, a
// node name of the network). Loads find rows by well; a save replaces the row of
// the same well; lists are emptied first. Nothing is shown on failure except a
// failed write ("保存数据库出错！" under "错误信息").
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct InjIndexRecord {
  std::string Jh;         // injection well
  double Inj_index = 0;   // injectivity index
  double Intercept = 0;
};

class PETRODB_API IInjIndex : public IDataBase {
 public:
  // The row of a well. False when there is none or a field cannot be read (the
  // fields read before it are set).
  virtual bool LoadInjIndex(const char* well, InjIndexRecord& record) = 0;
  // The wells whose name begins with `prefix`. False when there is none, or at
  // the first row that cannot be read (the rows before it stay).
  virtual bool LoadInjIndexesLike(const char* prefix, std::vector<InjIndexRecord>& records) = 0;
  // Every row, ordered by well; false as LoadInjIndexesLike.
  virtual bool LoadAllInjIndexes(std::vector<InjIndexRecord>& records) = 0;
  // The rows of the network's injection wells (its nodes of type 2), ordered by well.
  virtual bool LoadPipenetInjIndexes(const char* network, std::vector<InjIndexRecord>& records) = 0;
  virtual bool InjIndexExists(const char* well) = 0;
  // Replaces the row of the record's well: the delete of DeleteInjIndex, which
  // must succeed, then an insert. An empty well or a missing table fails
  // silently; a failed write shows "保存数据库出错！". On failure nothing is written.
  virtual bool SaveInjIndex(const InjIndexRecord& record) = 0;
  // Appends every record, deleting nothing first.
  virtual bool SaveInjIndexes(const std::vector<InjIndexRecord>& records) = 0;
  // Deletes the well's row; true also when there was none.
  virtual bool DeleteInjIndex(const char* well) = 0;
  // Deletes the rows of the network's injection wells only.
  virtual bool DeletePipenetInjIndexes(const char* network) = 0;
  // Deletes the rows of the named wells; an empty list is a statement that
  // cannot run ("in ()") and fails.
  virtual bool DeleteInjIndexesOfWells(const std::vector<std::string>& wells) = 0;
};
