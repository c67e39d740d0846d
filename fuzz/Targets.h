#pragma once
// What the fuzz targets check, one function per parser. Each takes the raw
// input and returns "" when all holds, else what failed. The libFuzzer entry
// points (fuzz/*Fuzz.cpp) abort on a failure; FuzzSeedsTest runs the same
// functions over the sample inputs in fuzz/corpus/<target>.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <sstream>
#include <string>
#include <string_view>

#include "dbaccess/ConnectionString.h"
#include "formats/Csv.h"
#include "formats/Las.h"

namespace petrodb::fuzz {

namespace detail {

inline std::string Upper(std::string s) {
  for (char& c : s)
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  return s;
}

inline bool SameDouble(double a, double b) {
  if (std::isnan(a) || std::isnan(b)) return std::isnan(a) && std::isnan(b);  // payloads are not kept
  return std::memcmp(&a, &b, sizeof a) == 0;
}

inline bool SameItem(const las::Item& a, const las::Item& b) {
  return a.mnemonic == b.mnemonic && a.unit == b.unit && a.value == b.value && a.description == b.description;
}

// The ~W items the writer copies (it computes STRT, STOP, STEP and NULL).
inline std::vector<las::Item> CopiedWellItems(const las::File& file) {
  std::vector<las::Item> items;
  for (const auto& item : file.well) {
    const std::string key = Upper(item.mnemonic);
    if (key != "STRT" && key != "STOP" && key != "STEP" && key != "NULL") items.push_back(item);
  }
  return items;
}

// What differs between a file and the file read back from its writing, or "".
inline std::string Difference(const las::File& want, const las::File& got) {
  if (got.curves.size() != want.curves.size()) return "curve count";
  for (std::size_t c = 0; c < want.curves.size(); ++c) {
    const auto &a = want.curves[c], &b = got.curves[c];
    if (a.mnemonic != b.mnemonic) return "mnemonic of curve " + std::to_string(c + 1);
    if (a.unit != b.unit) return "unit of curve " + a.mnemonic;
    if (a.description != b.description) return "description of curve " + a.mnemonic;
    if (a.values.size() != b.values.size()) return "sample count of curve " + a.mnemonic;
    for (std::size_t r = 0; r < a.values.size(); ++r)
      if (!SameDouble(a.values[r], b.values[r])) return "sample " + std::to_string(r) + " of curve " + a.mnemonic;
  }
  const auto wantWell = CopiedWellItems(want), gotWell = CopiedWellItems(got);
  if (wantWell.size() != gotWell.size()) return "well item count";
  for (std::size_t i = 0; i < wantWell.size(); ++i)
    if (!SameItem(wantWell[i], gotWell[i])) return "well item " + wantWell[i].mnemonic;
  if (want.parameters.size() != got.parameters.size()) return "parameter count";
  for (std::size_t i = 0; i < want.parameters.size(); ++i)
    if (!SameItem(want.parameters[i], got.parameters[i])) return "parameter " + want.parameters[i].mnemonic;
  if (!got.hasNull) return "NULL not written";
  if (!SameDouble(want.nullValue, got.nullValue)) return "NULL value";
  if (got.wrapped) return "written wrapped";
  return {};
}

// The table as CSV with every field quoted.
inline std::string WriteCsv(const csv::Table& table) {
  std::string out;
  auto row = [&out](const csv::Row& cells) {
    for (std::size_t j = 0; j < cells.size(); ++j) {
      out += j ? ",\"" : "\"";
      for (const char c : cells[j]) out += c == '"' ? std::string("\"\"") : std::string(1, c);
      out += '"';
    }
    out += "\r\n";
  };
  row(table.header);
  for (const auto& r : table.rows) row(r);
  return out;
}

// Reads the fuzz input as a sequence of choices: bytes, short texts and numbers.
class Choices {
 public:
  explicit Choices(std::string_view input) : input_(input) {}
  unsigned Byte() { return pos_ < input_.size() ? static_cast<unsigned char>(input_[pos_++]) : 0u; }
  std::string Text() {
    const std::size_t size = std::min<std::size_t>(Byte() % 24, input_.size() - std::min(pos_, input_.size()));
    std::string text(input_.substr(std::min(pos_, input_.size()), size));
    pos_ += size;
    return text;
  }
  double Number() {
    static const double special[] = {0.0, -0.0, 0.1, -999.25, 1e-310, 5e-324, 1.7976931348623157e308,
                                     std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity(),
                                     std::numeric_limits<double>::quiet_NaN()};
    const unsigned pick = Byte();
    if (pick < 128) return special[pick % (sizeof special / sizeof *special)];
    std::uint64_t bits = 0;
    for (int i = 0; i < 8; ++i) bits = bits << 8 | Byte();
    double value;
    std::memcpy(&value, &bits, sizeof value);
    return value;
  }
  las::Item Item() {
    las::Item item;
    item.mnemonic = Text();
    item.unit = Text();
    item.value = Text();
    item.description = Text();
    return item;
  }

 private:
  std::string_view input_;
  std::size_t pos_ = 0;
};

// A LAS file made of the input's choices, texts of any bytes included.
inline las::File ChosenFile(std::string_view input) {
  Choices in(input);
  las::File file;
  const unsigned curves = 1 + in.Byte() % 4, rows = in.Byte() % 4;
  for (unsigned c = 0; c < curves; ++c) {
    las::Curve curve;
    curve.mnemonic = in.Text();
    curve.unit = in.Text();
    curve.description = in.Text();
    for (unsigned r = 0; r < rows; ++r) curve.values.push_back(in.Number());
    file.curves.push_back(std::move(curve));
  }
  for (unsigned i = in.Byte() % 3; i > 0; --i) file.well.push_back(in.Item());
  for (unsigned i = in.Byte() % 3; i > 0; --i) file.parameters.push_back(in.Item());
  file.nullValue = in.Number();
  file.hasNull = true;
  return file;
}

}  // namespace detail

// The LAS reader never fails badly; whatever it reads and the writer accepts
// is written so that it reads back the same, and writing that again gives the
// same text.
inline std::string LasRoundTrip(std::string_view input) {
  // A file the writer is given directly: what it accepts reads back the same.
  {
    const las::File chosen = detail::ChosenFile(input);
    std::ostringstream written;
    std::string error;
    if (las::Write(written, chosen, error)) {
      las::File back;
      std::istringstream in(written.str());
      if (!las::Read(in, back, error)) return "a written file does not read back: " + error;
      if (const std::string d = detail::Difference(chosen, back); !d.empty())
        return "a written file reads back differently: " + d;
    } else if (error.empty()) {
      return "write refused without a reason";
    } else if (!written.str().empty()) {
      return "a refused write wrote something";
    }
  }
  // A file as the reader reads the input.
  las::File first;
  std::string error;
  std::istringstream in{std::string(input)};
  if (!las::Read(in, first, error)) return error.empty() ? "read failed without a reason" : "";
  for (const auto& curve : first.curves)
    if (curve.values.size() != first.curves.front().values.size()) return "curves of different lengths read";
  std::ostringstream written;
  if (!las::Write(written, first, error)) {
    if (error.empty()) return "write refused without a reason";
    if (!written.str().empty()) return "a refused write wrote something";
    return "";
  }
  las::File second;
  std::istringstream back(written.str());
  if (!las::Read(back, second, error)) return "the written file does not read back: " + error;
  if (const std::string d = detail::Difference(first, second); !d.empty())
    return "the written file reads back differently: " + d;
  std::ostringstream again;
  if (!las::Write(again, second, error)) return "the file read back cannot be written: " + error;
  if (again.str() != written.str()) return "writing the file read back gives another text";
  return {};
}

// The CSV reader refuses NUL bytes with a place, gives every row its line,
// and a table written back with every field quoted reads back the same.
inline std::string CsvReader(std::string_view input) {
  csv::Table table;
  std::string error;
  const bool ok = csv::Parse(input, "f.csv", table, error);
  const bool hasNul = input.find('\0') != std::string_view::npos;
  if (!ok) {
    if (error.rfind("f.csv: ", 0) != 0) return "error without the file: " + error;
    // A NUL stops the reading where it stands, so nothing else is reported.
    if (hasNul && (error.find("NUL") == std::string::npos || error.rfind("f.csv: line ", 0) != 0))
      return "a NUL byte reported as: " + error;
    if (!hasNul && error.find("NUL") != std::string::npos) return "a NUL byte reported where there is none";
    return {};
  }
  if (hasNul) return "a NUL byte accepted";
  if (table.header.empty()) return "a table without a header accepted";
  if (table.rows.size() != table.lines.size()) return "rows and lines differ in number";
  for (std::size_t i = 0; i < table.lines.size(); ++i) {
    if (table.lines[i] < 2) return "a data row on line " + std::to_string(table.lines[i]);
    if (i && table.lines[i] <= table.lines[i - 1]) return "row lines not increasing";
  }
  csv::Table back;
  if (!csv::Parse(detail::WriteCsv(table), "g.csv", back, error)) return "the table written back does not read: " + error;
  if (back.header != table.header || back.rows != table.rows) return "the table written back reads differently";
  return {};
}

// Connection strings: parsing and masking never fail badly; masking hides
// every password the parser sees and changes no other key's value.
inline std::string ConnectionStringParser(std::string_view input) {
  const std::string text(input);
  const db::ConnectionString parsed(text);
  const std::string masked = db::ConnectionString::Masked(text);
  const db::ConnectionString reparsed(masked);
  (void)db::IsJetConnection(text);
  for (const char* key : {"password", "pwd", "jet oledb:database password"}) {
    const std::string value = parsed.Get(key);
    if (!parsed.Has(key) || value.empty() || value == "***") continue;
    if (reparsed.Get(key) == value) return std::string("the ") + key + " is not masked";
  }
  for (const char* key : {"provider", "data source", "host", "port", "database", "user id", "mode", "timeout",
                          "initial catalog"}) {
    if (parsed.Has(key) != reparsed.Has(key) || parsed.Get(key) != reparsed.Get(key))
      return std::string("masking changed ") + key;
  }
  return {};
}

}  // namespace petrodb::fuzz
