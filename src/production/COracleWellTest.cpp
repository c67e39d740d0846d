#include "dbaccess/DataObject.h"
#include "petrodb/production/IOracleWellTest.h"

using namespace petrodb;

namespace {

constexpr Pattern<"select distinct CM from V_DAA01 order by CM "> kPlants;
constexpr Pattern<"select distinct KM from V_DAA01 where CM ='%s' order by KM "> kUnits;
// The blank after the quote is part of the statement: KM =' <unit>'.
constexpr Pattern<"select distinct QKDY from V_DAA01 where CM ='%s' and KM =' %s' order by QKDY "> kBlocks;
constexpr Pattern<"select distinct ZM from V_DBA02 where CM ='%s' and KM ='%s' order by ZM "> kStations;
constexpr Pattern<"select distinct RQ from V_DBA02 order by RQ"> kDates;
constexpr Pattern<
    "select  distinct JH  from V_DBA02 where RQ between to_date('%s', 'YYYY-MM-DD') and  to_date('%s', "
    "'YYYY-MM-DD')  and KM ='%s'">
    kWells;
constexpr Pattern<
    "select * from V_DBA02 where  CM ='%s' and KM ='%s' and RQ between to_date('%s', 'YYYY-MM-DD') and  "
    "to_date('%s', 'YYYY-MM-DD')  and ZM ='%s'">
    kStationTests;
constexpr Pattern<
    "select JH, RQ, SCSJ, RPZSL,RZSL,GXYL,YY,TY from V_DBA02 where RQ between to_date('%s', 'YYYY-MM-DD') and  "
    "to_date('%s', 'YYYY-MM-DD')  and JH in(%s)">
    kWellTests;
constexpr Pattern<"select * from V_DBA02 order by ZM"> kAll;

const ColumnTable<OracleWellTestRecord> kColumns{"V_DBA02", {
    Col("JH", &OracleWellTestRecord::JH),
    Col("RQ", &OracleWellTestRecord::RQ),
    Col("SCSJ", &OracleWellTestRecord::SCSJ),
    Col("RPZSL", &OracleWellTestRecord::RPZSL),
    Col("RZSL", &OracleWellTestRecord::RZSL),
    Col("GXYL", &OracleWellTestRecord::GXYL),
    Col("YY", &OracleWellTestRecord::YY),
    Col("TY", &OracleWellTestRecord::TY),
}};

}  // namespace

class COracleWellTest final : public CDataObject<IOracleWellTest> {
 public:
  bool ListPlants(std::vector<std::string>& plants) override { return List(kPlants(), "CM", plants); }
  bool ListUnits(const char* plant, std::vector<std::string>& units) override {
    return List(kUnits(plant), "KM", units);
  }
  bool ListBlocks(const char* plant, const char* unit, std::vector<std::string>& blocks) override {
    return List(kBlocks(plant, unit), "QKDY", blocks);
  }
  bool ListStations(const char* plant, const char* unit, std::vector<std::string>& stations) override {
    return List(kStations(plant, unit), "ZM", stations);
  }
  bool ListDates(std::vector<std::string>& dates) override { return List(kDates(), "RQ", dates); }
  bool ListWells(const char* from, const char* to, const char* unit, std::vector<std::string>& wells) override {
    return List(kWells(from, to, unit), "JH", wells);
  }
  bool LoadStationTests(const char* plant, const char* unit, const char* from, const char* to, const char* station,
                        std::vector<OracleWellTestRecord>& records) override {
    return Load(kStationTests(plant, unit, from, to, station), records);
  }
  bool LoadWellTests(const char* from, const char* to, const std::vector<std::string>& wells,
                     std::vector<OracleWellTestRecord>& records) override {
    return Load(kWellTests(from, to, sql::QuoteEach(wells)), records);
  }
  bool LoadAllTests(std::vector<OracleWellTestRecord>& records) override { return Load(kAll(), records); }

 private:
  bool List(const Statement& statement, const char* column, std::vector<std::string>& out) const {
    return ListColumn(statement, column, out, Fill::Clear).found();
  }
  bool Load(const Statement& statement, std::vector<OracleWellTestRecord>& out) const {
    return LoadAll(statement, kColumns, out, Fill::Clear).found();
  }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(COracleWellTest, IOracleWellTest)
