#include "petrodb/production/ISpecificData.h"
#include "production/ReferenceTables.h"

using namespace petrodb;
using namespace petrodb::production;

namespace {

constexpr Pattern<"select WellID, %s from %s where %s=%s"> kValues;

}  // namespace

class CSpecificData final : public CReferenceTable<ISpecificData> {
 public:
  bool GetSpecificValues(const char* column, const char* table, const char* keyColumn, const char* keyValue,
                         std::vector<SpecificValue>& values) override {
    const std::string name = column ? column : "";
    return LoadList(kValues(Spliced(column), Spliced(table), Spliced(keyColumn), Spliced(keyValue)),
                    [&name](const CDbManage& db, SpecificValue& v) {
                      return db.GetFieldValue("WellID", v.WellID) && db.GetFieldValue(name.c_str(), v.Value);
                    },
                    values);
  }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CSpecificData, ISpecificData)
