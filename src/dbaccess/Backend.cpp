#include "dbaccess/Backend.h"

namespace petrodb::db {

bool SameShape(const PendingRow& a, const PendingRow& b) {
  if (a.table != b.table || a.cells.size() != b.cells.size()) return false;
  for (std::size_t k = 0; k < a.cells.size(); ++k)
    if (a.cells[k].first != b.cells[k].first) return false;
  return true;
}

std::string InsertText(const PendingRow& row, std::string (*column)(const std::string&),
                       std::string (*mark)(std::size_t)) {
  if (row.cells.empty()) return "insert into " + row.table + " default values";
  std::string text = "insert into " + row.table + " (";
  std::string marks;
  for (std::size_t k = 0; k < row.cells.size(); ++k) {
    if (k) {
      text += ", ";
      marks += ", ";
    }
    text += column ? column(row.cells[k].first) : row.cells[k].first;
    marks += mark ? mark(k) : std::string("?");
  }
  return text + ") values (" + marks + ")";
}

}  // namespace petrodb::db
