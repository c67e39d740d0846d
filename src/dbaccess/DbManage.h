#pragma once
// The database session every data-object operation opens: run one statement,
// read the current row's fields, or append rows to a table in one batch.
#include <memory>
#include <string>

#include "petrodb/DateTime.h"
#include "petrodb/Variant.h"

enum GetDataResult {
  kRowsFound = 0,  // at least one row; the cursor stands on the first
  kNoRows = 1,     // the statement ran and returned nothing
  kFailed = 2,     // no connection, missing table, or the statement could not run
};

class CDbManage {
 public:
  // Takes a pooled connection for the connection string (or opens one). A
  // failure to connect is not reported here; every later call fails instead.
  explicit CDbManage(const char* connection);
  // Writes rows still pending (as SaveData would), closes the result set and
  // returns the connection to its pool.
  ~CDbManage();
  CDbManage(const CDbManage&) = delete;
  CDbManage& operator=(const CDbManage&) = delete;

  bool IsConnected() const;

  // Runs one select statement, or reads a whole table when given a bare table
  // name (row by row: a probe reads at most one row). `binary` marks statements
  // that read double-array columns; both backends read them alike.
  GetDataResult GetDataFromDB(const char* statement, bool binary = false);
  // The first call after GetDataFromDB stays on the first row, each later call
  // moves one row on; false when no row is current.
  bool Read();

  // Copies a field of the current row; false when the column is missing, NULL
  // or does not convert. Column names ignore case.
  bool GetFieldValue(const char* column, std::string& value) const;
  bool GetFieldValue(const char* column, double& value) const;
  bool GetFieldValue(const char* column, float& value) const;
  bool GetFieldValue(const char* column, long& value) const;
  bool GetFieldValue(const char* column, int& value) const;
  bool GetFieldValue(const char* column, char& value) const;
  bool GetFieldValue(const char* column, Variant& value) const;

  // Prepares to append rows to `table`; false when the table does not exist.
  bool BeginSaveData(const char* table);
  void AddNew();
  void SetFieldValue(const char* column, const char* value);
  void SetFieldValue(const char* column, const std::string& value);
  void SetFieldValue(const char* column, double value);
  void SetFieldValue(const char* column, float value);
  void SetFieldValue(const char* column, int value);
  void SetFieldValue(const char* column, long value);
  void SetFieldValue(const char* column, char value);
  void SetFieldValue(const char* column, const DateTime& value);
  void SetFieldValue(const char* column, const Variant& value);
  // Writes every row added since BeginSaveData in one transaction: all or nothing.
  bool SaveData();
  // Drops the rows added and not yet saved.
  void CancelSaveData();

  // Runs one statement that returns no rows.
  bool ExecuteSQL(const char* statement);

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};
