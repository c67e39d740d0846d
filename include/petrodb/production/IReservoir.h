#pragma once
// Reservoir properties (w_reservoir), one row per reservoir (Res_name). Loads
// find rows by name; a save replaces the row of the same name; lists are
// emptied first. Nothing is shown on failure except a failed write
// ("保存数据库出错！" under "错误信息"). Units are the site's.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct ReservoirRecord {
  std::string Res_name;
  std::string Res_lith;      // lithology
  std::string Wellnet_size;  // well spacing
  double Porosity = 0;
  double Perm = 0;
  double Struct_dir = 0;
  double Struct_area = 0;
  double Ooip = 0;          // oil originally in place
  double Origin_hor_P = 0;  // original formation pressure
  double Cur_hor_p = 0;     // current formation pressure
  double Res_temp = 0;
  std::string Res_water_prop;  // formation water type
  double Yang_modulus = 0;
  double Poisson_ratio = 0;
  double Oil_den = 0;
  double Oil_vis = 0;
  double Oil_frez_point = 0;
  double Asphalt_per = 0;
  double Water_sat = 0;
  double Oil_sat = 0;
  double Wax_per = 0;
  double Init_boil_point = 0;
  double Under_oil_vis = 0;  // viscosity under reservoir conditions
  double Init_gas_oil_ratio = 0;
  double Sat_p = 0;  // saturation pressure
  double Init_hor_temp = 0;
  double Water_well_temp = 0;
  double Oil_well_temp = 0;
  double Drain_rad = 0;  // drainage radius
  double Flow_comp_coef = 0;
  double Rock_comp_coef = 0;
};

class PETRODB_API IReservoir : public IDataBase {
 public:
  // The row of a reservoir. False when there is none or a field cannot be read
  // (the fields read before it are set).
  virtual bool LoadReservoir(const char* name, ReservoirRecord& record) = 0;
  // Every row, in the table's order. False when there is none, or at the first
  // row that cannot be read (the rows before it stay).
  virtual bool LoadAllReservoirs(std::vector<ReservoirRecord>& records) = 0;
  virtual bool ReservoirExists(const char* name) = 0;
  // Replaces the row of the record's name: the delete of DeleteReservoir, which
  // must succeed, then an insert. An empty name or a missing table fails
  // silently; a failed write shows "保存数据库出错！". On failure nothing is written.
  virtual bool SaveReservoir(const ReservoirRecord& record) = 0;
  // Appends every record, deleting nothing first.
  virtual bool SaveReservoirs(const std::vector<ReservoirRecord>& records) = 0;
  // Deletes the reservoir's row; true also when there was none.
  virtual bool DeleteReservoir(const char* name) = 0;
  virtual bool DeleteAllReservoirs() = 0;
};
