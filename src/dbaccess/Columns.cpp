#include "dbaccess/Columns.h"

#include <mutex>

namespace petrodb {
namespace columns {

bool ReadValue(const CDbManage& db, const char* column, std::string& value) { return db.GetFieldValue(column, value); }
bool ReadValue(const CDbManage& db, const char* column, double& value) { return db.GetFieldValue(column, value); }
bool ReadValue(const CDbManage& db, const char* column, float& value) { return db.GetFieldValue(column, value); }
bool ReadValue(const CDbManage& db, const char* column, int& value) { return db.GetFieldValue(column, value); }
bool ReadValue(const CDbManage& db, const char* column, long& value) { return db.GetFieldValue(column, value); }
bool ReadValue(const CDbManage& db, const char* column, char& value) { return db.GetFieldValue(column, value); }
bool ReadValue(const CDbManage& db, const char* column, Variant& value) { return db.GetFieldValue(column, value); }

bool ReadValue(const CDbManage& db, const char* column, std::vector<double>& value) {
  return db.GetFieldValue(column, value);
}

bool ReadValue(const CDbManage& db, const char* column, DateTime& value) {
  std::string text;
  return db.GetFieldValue(column, text) && DateTime::Parse(text, value);
}

void WriteValue(CDbManage& db, const char* column, const std::string& value, EmptyArray) {
  db.SetFieldValue(column, value);
}
void WriteValue(CDbManage& db, const char* column, double value, EmptyArray) { db.SetFieldValue(column, value); }
void WriteValue(CDbManage& db, const char* column, float value, EmptyArray) { db.SetFieldValue(column, value); }
void WriteValue(CDbManage& db, const char* column, int value, EmptyArray) { db.SetFieldValue(column, value); }
void WriteValue(CDbManage& db, const char* column, long value, EmptyArray) { db.SetFieldValue(column, value); }
void WriteValue(CDbManage& db, const char* column, char value, EmptyArray) { db.SetFieldValue(column, value); }
void WriteValue(CDbManage& db, const char* column, const Variant& value, EmptyArray) {
  db.SetFieldValue(column, value);
}
void WriteValue(CDbManage& db, const char* column, const DateTime& value, EmptyArray) {
  db.SetFieldValue(column, value);
}

void WriteValue(CDbManage& db, const char* column, const std::vector<double>& values, EmptyArray empty) {
  Variant v;
  if (!values.empty() || empty == EmptyArray::ZeroLength)
    DoubleArrayToVariant(values.data(), static_cast<int>(values.size()), v);
  db.SetFieldValue(column, v);
}

}  // namespace columns

namespace {
std::mutex g_tablesMutex;
std::vector<ColumnTableInfo>& Tables() {
  static std::vector<ColumnTableInfo> tables;
  return tables;
}
}  // namespace

const std::vector<ColumnTableInfo>& RegisteredColumnTables() {
  std::lock_guard lock(g_tablesMutex);
  return Tables();
}

void RegisterColumnTable(ColumnTableInfo info) {
  std::lock_guard lock(g_tablesMutex);
  Tables().push_back(std::move(info));
}

}  // namespace petrodb
