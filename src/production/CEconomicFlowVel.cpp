#include <bit>
#include <cstdint>

#include "petrodb/production/IEconomicFlowVel.h"
#include "production/ReferenceTables.h"

using namespace petrodb;
using namespace petrodb::production;

namespace {

constexpr Pattern<"select * from b_economicflowvel order by InnerDia"> kLoadAll;
constexpr Pattern<"select InnerDia from b_economicflowvel where InnerDia =%d"> kExists;
constexpr Pattern<"delete from b_economicflowvel where InnerDia =%d"> kDelete;
constexpr Pattern<"delete from b_economicflowvel where InnerDia in (%s)"> kDeleteList;
constexpr Pattern<"delete from b_economicflowvel"> kDeleteAll;

const ColumnTable<EconomicFlowVelRecord> kColumns{"b_economicflowvel", {
    Col("InnerDia", &EconomicFlowVelRecord::InnerDia),
    Col("LowQ", &EconomicFlowVelRecord::LowQ),
    Col("HighQ", &EconomicFlowVelRecord::HighQ),
    Col("LowV", &EconomicFlowVelRecord::LowV),
    Col("HighV", &EconomicFlowVelRecord::HighV),
}};

// The integer that names a diameter in the single-row statements. Those
// statements have always handed the double to a "%d" conversion, which on the
// 32-bit x86 calling convention took the low word of the double's bit pattern;
// the stored diameters that match are the ones equal to that integer. The
// conversion is spelled out here (bit pattern, low 32 bits, two's complement).
std::int32_t DiameterWord(double innerDia) {
  const auto bits = std::bit_cast<std::uint64_t>(innerDia);
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(bits & 0xFFFFFFFFu));
}

}  // namespace

class CEconomicFlowVel final : public CReferenceTable<IEconomicFlowVel> {
 public:
  bool LoadAllEconomicFlowVels(std::vector<EconomicFlowVelRecord>& records) override {
    return LoadList(kLoadAll(), kColumns, records);
  }
  bool EconomicFlowVelExists(double innerDia) override { return Exists(kExists(DiameterWord(innerDia))); }
  bool SaveEconomicFlowVel(const EconomicFlowVelRecord& record) override {
    return ReplaceRows(kColumns.table(), kDelete(DiameterWord(record.InnerDia)),
                       [&](CDbManage& db) { kColumns.AddRow(db, record); });
  }
  bool SaveEconomicFlowVels(const std::vector<EconomicFlowVelRecord>& records) override {
    return Append(kColumns.table(), [&](CDbManage& db) { kColumns.AddRows(db, records); });
  }
  bool DeleteEconomicFlowVel(double innerDia) override { return Execute(kDelete(DiameterWord(innerDia))); }
  bool DeleteEconomicFlowVels(const std::vector<double>& innerDias) override {
    return Execute(kDeleteList(sql::Raw{JoinFormatted(innerDias, "%f", ",")}));
  }
  bool DeleteAllEconomicFlowVels() override { return Execute(kDeleteAll()); }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CEconomicFlowVel, IEconomicFlowVel)
