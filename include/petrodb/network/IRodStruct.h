#pragma once
// The downhole string of injection wells (w_rod_struct): one row per well and
// producing horizon. A well's rows are loaded, replaced and deleted together.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct RodStructRecord {
  std::string Jh;            // well name
  std::string Prod_horizon;  // producing horizon
  std::string Inj_type;      // injection type
  int Packer_num = 0;
  std::string Rod_struct;
  std::string Buckle_type;
  std::string Tube_level;
  double Tube_in_dia = 0;
  std::string Distr_level;  // distributor
  double Distr_len = 0;
  double Distr_core_dia = 0;
  double Distr_core_len = 0;
  double Distr_mouth_dia = 0;
  std::string Packer_type;
  double Packer_len = 0;
  double Packer_in_dia = 0;
  double Tee_in_dia = 0;
  double Sieve_tube_len = 0;
  double Sieve_tube_out_dia = 0;
  double Plug_out_dia = 0;
};

// Every list below is emptied first and is false when nothing is found, or at
// the first row that cannot be read (the rows before it stay).
class PETRODB_API IRodStruct : public IDataBase {
 public:
  // The row of a well's horizon. False when there is none or a field cannot be
  // read (the fields read before it are set).
  virtual bool LoadRodStruct(const char* well, const char* horizon, RodStructRecord& record) = 0;
  // The well's rows, in table order.
  virtual bool LoadWellRodStructs(const char* well, std::vector<RodStructRecord>& records) = 0;
  // The rows of the wells whose names begin with `prefix`.
  virtual bool LoadRodStructsByPrefix(const char* prefix, std::vector<RodStructRecord>& records) = 0;
  // Every row, ordered by well.
  virtual bool LoadAllRodStructs(std::vector<RodStructRecord>& records) = 0;
  // The rows of the injection wells among a network's nodes, ordered by well.
  virtual bool LoadPipenetRodStructs(const char* network, std::vector<RodStructRecord>& records) = 0;
  // True when the well has a row.
  virtual bool WellRodStructsExist(const char* well) = 0;
  // Replaces every row of the well by `records`, each written under `well`: the
  // well must be given (else "注水井号不能为空！"), the table must answer its
  // probe (else "井筒管柱结构数据表为空！"), and the delete of the well's rows
  // must succeed, else nothing is written. A failed write shows
  // "保存数据库出错！" (the old rows are gone by then).
  virtual bool SaveWellRodStructs(const char* well, const std::vector<RodStructRecord>& records) = 0;
  // Appends the records as they are, deleting and probing nothing.
  virtual bool SaveRodStructList(const std::vector<RodStructRecord>& records) = 0;
  // Deletes the well's rows; true also when it had none.
  virtual bool DeleteWellRodStructs(const char* well) = 0;
  // Deletes the rows of the injection wells among a network's nodes. An empty
  // network shows "管网名称不能为空！" and deletes nothing.
  virtual bool DeletePipenetRodStructs(const char* network) = 0;
  // Deletes the rows of the named wells in one statement. An empty list sends
  // "in ()", which no engine runs: false.
  virtual bool DeleteRodStructsOfWells(const std::vector<std::string>& wells) = 0;
};
