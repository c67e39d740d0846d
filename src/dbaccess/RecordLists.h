#pragma once
// Reading lists of records: every row of a select through one row reader, and
// key lists sent as "in ('a', 'b')" clauses in batches of a few values each.
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "dbaccess/DataObject.h"

namespace petrodb {

// Runs a select and appends one record per row, read by `read(db, record)`.
// Answers the select's result (0, 1, 2), or kRowUnreadable when a row could
// not be read; the rows before it stay appended.
template <class Record, class ReadFn>
int SelectRecords(CDbManage& db, const std::string& statement, std::vector<Record>& out, ReadFn&& read) {
  bool ok = true;
  const auto result = ForEachRow(db, statement, false, [&](CDbManage& row) {
    Record record{};
    if (!read(row, record)) return ok = false;
    out.push_back(std::move(record));
    return true;
  });
  return ok ? static_cast<int>(result) : kRowUnreadable;
}

// SelectRecords as a success flag: the select ran (no rows included) and every
// row was read.
template <class Record, class ReadFn>
bool AppendRecords(CDbManage& db, const std::string& statement, std::vector<Record>& out, ReadFn&& read) {
  const int result = SelectRecords(db, statement, out, read);
  return result == kRowsFound || result == kNoRows;
}

// The text column `column` of every row, as SelectRecords answers.
int SelectColumn(CDbManage& db, const std::string& statement, const char* column, std::vector<std::string>& out);
// SelectColumn as a success flag (no rows included).
bool AppendColumn(CDbManage& db, const std::string& statement, const char* column, std::vector<std::string>& out);

// How a batch that finds nothing is treated by ForEachBatch.
struct BatchRetry {
  std::string_view from, to;  // replaced once in the statement for the retry
};

// Sends one statement per batch of at most `size` values, in order:
// `build(list)` makes it from the batch joined by "', '" (the inside of
// "in ('...')"), and `run(statement)` sends it, reads its rows and answers like
// SelectRecords. A batch answering 2 or kRowUnreadable ends with false. With a
// retry, a batch answering anything but 0 is sent once more with `from`
// replaced by `to`, and fails unless that answers 0. An empty list sends
// nothing and is true.
template <class BuildFn, class RunFn>
bool ForEachBatch(std::span<const std::string> values, std::size_t size, BuildFn&& build, RunFn&& run,
                  const BatchRetry* retry = nullptr) {
  for (const auto batch : sql::Batches(values, size)) {
    const std::string statement = build(sql::JoinQuotedValues(batch));
    int result = run(statement);
    if (retry && result != kRowsFound && result != kRowUnreadable) {
      result = run(sql::ReplaceFirst(statement, retry->from, retry->to));
      if (result != kRowsFound) return false;
    }
    if (result == kFailed || result == kRowUnreadable) return false;
  }
  return true;
}

}  // namespace petrodb
