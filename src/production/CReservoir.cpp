#include "network/Catalogue.h"
#include "petrodb/production/IReservoir.h"

using namespace petrodb;
using namespace petrodb::network;

namespace {

constexpr Pattern<"select * from w_reservoir"> kLoadAll;
constexpr Pattern<"select * from w_reservoir where Res_name = '%s'"> kLoad;
constexpr Pattern<"select * from w_reservoir where Res_name ='%s'"> kExists;
constexpr Pattern<"delete from w_reservoir where Res_name = '%s'"> kDelete;
constexpr Pattern<"delete from w_reservoir"> kDeleteAll;

using R = ReservoirRecord;
const ColumnTable<R> kColumns{"w_reservoir", {
    Col("Res_name", &R::Res_name),
    Col("Res_lith", &R::Res_lith),
    Col("Wellnet_size", &R::Wellnet_size),
    Col("Porosity", &R::Porosity),
    Col("Perm", &R::Perm),
    Col("Struct_dir", &R::Struct_dir),
    Col("Struct_area", &R::Struct_area),
    Col("Ooip", &R::Ooip),
    Col("Origin_hor_P", &R::Origin_hor_P),
    Col("Cur_hor_p", &R::Cur_hor_p),
    Col("Res_temp", &R::Res_temp),
    Col("Res_water_prop", &R::Res_water_prop),
    Col("Yang_modulus", &R::Yang_modulus),
    Col("Poisson_ratio", &R::Poisson_ratio),
    Col("Oil_den", &R::Oil_den),
    Col("Oil_vis", &R::Oil_vis),
    Col("Oil_frez_point", &R::Oil_frez_point),
    Col("Asphalt_per", &R::Asphalt_per),
    Col("Water_sat", &R::Water_sat),
    Col("Oil_sat", &R::Oil_sat),
    Col("Wax_per", &R::Wax_per),
    Col("Init_boil_point", &R::Init_boil_point),
    Col("Under_oil_vis", &R::Under_oil_vis),
    Col("Init_gas_oil_ratio", &R::Init_gas_oil_ratio),
    Col("Sat_p", &R::Sat_p),
    Col("Init_hor_temp", &R::Init_hor_temp),
    Col("Water_well_temp", &R::Water_well_temp),
    Col("Oil_well_temp", &R::Oil_well_temp),
    Col("Drain_rad", &R::Drain_rad),
    Col("Flow_comp_coef", &R::Flow_comp_coef),
    Col("Rock_comp_coef", &R::Rock_comp_coef),
}};

const Catalogue<R> kReservoirs{
    .columns = kColumns,
    .key = &R::Res_name,
    .loadKey = ByKey<kLoad>,
    .loadAll = Whole<kLoadAll>,
    .deleteKey = ByKey<kDelete>,
    .deleteAll = Whole<kDeleteAll>,
};

}  // namespace

class CReservoir final : public CCatalogueObject<IReservoir> {
 public:
  bool LoadReservoir(const char* name, R& record) override { return LoadEntry(kReservoirs, name, record); }
  bool LoadAllReservoirs(std::vector<R>& records) override { return LoadEntries(kReservoirs, records); }
  bool ReservoirExists(const char* name) override { return Exists(kExists(name)); }
  bool SaveReservoir(const R& record) override { return SaveEntry(kReservoirs, record); }
  bool SaveReservoirs(const std::vector<R>& records) override { return SaveEntries(kReservoirs, records); }
  bool DeleteReservoir(const char* name) override { return DeleteEntry(kReservoirs, name); }
  bool DeleteAllReservoirs() override { return DeleteEntries(kReservoirs); }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CReservoir, IReservoir)
