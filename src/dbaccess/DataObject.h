#pragma once
// What every data class shares: the stored connection string, the session each
// operation opens on it, registration in the catalogue, and field-list reading
// and writing.
#include <new>
#include <string>
#include <vector>

#include "dbaccess/ConnectionString.h"
#include "dbaccess/DbManage.h"
#include "dbaccess/Messages.h"
#include "dbaccess/SqlText.h"
#include "module/Catalogue.h"
#include "petrodb/IDataBase.h"

namespace petrodb {

template <class Interface>
class CDataObject : public Interface {
 public:
  void SetConnection(const char* connection) override { connectionString = connection ? connection : ""; }

 protected:
  // True for Access project files: the statements with lcase(...) and #dates#.
  bool IsJet() const { return db::IsJetConnection(connectionString); }

  std::string connectionString;
};

// Reads fields of the current row in order. After the first field that cannot
// be read the rest are skipped and ok() stays false; fields read so far keep
// their values.
class FieldReader {
 public:
  explicit FieldReader(const CDbManage& db) : db_(db) {}

  template <class T>
  FieldReader& operator()(const char* column, T& value) {
    if (ok_ && !db_.GetFieldValue(column, value)) Fail(column);
    return *this;
  }
  // A double-array column.
  FieldReader& operator()(const char* column, std::vector<double>& values);
  // A field that falls back to `fallback` when it cannot be read.
  template <class T, class U>
  FieldReader& Optional(const char* column, T& value, const U& fallback) {
    if (ok_ && !db_.GetFieldValue(column, value)) value = fallback;
    return *this;
  }

  bool ok() const { return ok_; }
  // The column that could not be read, or null.
  const char* failedColumn() const { return failed_; }

 private:
  void Fail(const char* column) {
    ok_ = false;
    failed_ = column;
  }
  const CDbManage& db_;
  bool ok_ = true;
  const char* failed_ = nullptr;
};

// How an empty double array is written: as NULL, or as a zero-length value.
enum class EmptyArray { Null, ZeroLength };

// Sets fields of the row begun with AddNew.
class FieldWriter {
 public:
  explicit FieldWriter(CDbManage& db, EmptyArray empty = EmptyArray::Null) : db_(db), empty_(empty) {}

  template <class T>
  FieldWriter& operator()(const char* column, const T& value) {
    db_.SetFieldValue(column, value);
    return *this;
  }
  FieldWriter& operator()(const char* column, const std::vector<double>& values);

 private:
  CDbManage& db_;
  EmptyArray empty_;
};

// Runs a select and calls `row(db)` for each row (Read before each, the first
// included) until it returns false or the rows end. Returns the select's result.
template <class RowFn>
GetDataResult ForEachRow(CDbManage& db, const std::string& statement, bool binary, RowFn&& row) {
  const GetDataResult result = db.GetDataFromDB(statement.c_str(), binary);
  if (result != kRowsFound) return result;
  while (db.Read())
    if (!row(db)) break;
  return result;
}

// True when the bare table answers 2 (missing, or no connection).
inline bool TableMissing(CDbManage& db, const char* table) { return db.GetDataFromDB(table, false) == kFailed; }

}  // namespace petrodb

// Declares the class's last slot; place in the class body.
#define PETRODB_DATA_CLASS \
 public:                   \
  virtual const DataClassRecord* GetClassRecord() const;

// Registers a class under its interface name and defines GetClassRecord.
#define PETRODB_REGISTER_CLASS(Class, Interface)                                             \
  namespace {                                                                                \
  IDataBase* Create##Class() { return static_cast<Interface*>(new (std::nothrow) Class()); } \
  DataClassRecord g_##Class##Record{#Class, #Interface, &Create##Class, nullptr};            \
  const petrodb::CatalogueRegistration g_##Class##Registration(&g_##Class##Record);          \
  }                                                                                          \
  const DataClassRecord* Class::GetClassRecord() const { return &g_##Class##Record; }
