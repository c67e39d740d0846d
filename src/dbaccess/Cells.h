#pragma once
// One field of the current row as the engine holds it, and its conversions to
// each kind of value a record member may hold. A field read by name and a
// column table's reads go through the same conversions.
#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "dbaccess/SqlText.h"
#include "petrodb/DateTime.h"
#include "petrodb/Variant.h"

namespace petrodb::db {

enum class CellKind : std::uint8_t { Null, Integer, Real, Text, Blob };

// A field of the current row: Null also stands for a missing column and for no
// row. Text and blob bytes stay where the engine keeps them, valid while the
// row is current.
struct FieldCell {
  CellKind kind = CellKind::Null;
  union {
    std::int64_t integer = 0;
    double real;
  };
  const char* data = nullptr;
  std::size_t size = 0;

  std::string_view Text() const { return {data, size}; }
};

// A number: integers and reals as they are, text when it is one number as a whole.
inline bool CellTo(const FieldCell& c, double& value) {
  switch (c.kind) {
    case CellKind::Integer: value = static_cast<double>(c.integer); return true;
    case CellKind::Real: value = c.real; return true;
    case CellKind::Text: return sql::ParseWholeNumber(c.Text(), value);
    default: return false;
  }
}

inline bool CellTo(const FieldCell& c, float& value) {
  double d;
  if (!CellTo(c, d)) return false;
  value = static_cast<float>(d);
  return true;
}

namespace cells {
// Integers from reals round to nearest, ties to even, as a variant conversion does.
template <class T>
bool ToInteger(const FieldCell& c, T& value) {
  long long v;
  if (c.kind == CellKind::Integer) {
    v = c.integer;
  } else {
    double d;
    if (!CellTo(c, d) || !std::isfinite(d)) return false;
    const double r = std::nearbyint(d);
    if (r < -9.2e18 || r > 9.2e18) return false;
    v = static_cast<long long>(r);
  }
  if (v < std::numeric_limits<T>::min() || v > std::numeric_limits<T>::max()) return false;
  value = static_cast<T>(v);
  return true;
}
}  // namespace cells

inline bool CellTo(const FieldCell& c, long& value) { return cells::ToInteger(c, value); }
inline bool CellTo(const FieldCell& c, int& value) { return cells::ToInteger(c, value); }

// Numbers read as the shortest text that reads back the same.
inline bool CellTo(const FieldCell& c, std::string& value) {
  switch (c.kind) {
    case CellKind::Text: value.assign(c.data, c.size); return true;
    case CellKind::Integer: value = std::to_string(c.integer); return true;
    case CellKind::Real: value = sql::ShortestText(c.real); return true;
    default: return false;
  }
}

// A flag reads the first character of the field's text ('1' for the number 1).
inline bool CellTo(const FieldCell& c, char& value) {
  if (c.kind == CellKind::Text) {
    if (c.size == 0) return false;
    value = c.data[0];
    return true;
  }
  std::string text;
  if (!CellTo(c, text) || text.empty()) return false;
  value = text[0];
  return true;
}

// A double array: blob bytes only, stored little-endian.
inline bool CellTo(const FieldCell& c, std::vector<double>& values) {
  if (c.kind != CellKind::Blob) return false;
  const std::size_t count = c.size / sizeof(double);
  if (reinterpret_cast<std::uintptr_t>(c.data) % alignof(double) == 0) {
    const auto* first = reinterpret_cast<const double*>(c.data);
    values.assign(first, first + count);  // one pass, no zero fill first
  } else {
    values.resize(count);
    if (count) std::memcpy(values.data(), c.data, count * sizeof(double));
  }
  if constexpr (std::endian::native == std::endian::big) {
    for (double& d : values) {
      auto* b = reinterpret_cast<unsigned char*>(&d);
      std::reverse(b, b + sizeof(double));
    }
  }
  return true;
}

inline bool CellTo(const FieldCell& c, Variant& value) {
  std::vector<double> values;
  if (!CellTo(c, values)) return false;
  value = Variant(std::move(values));
  return true;
}

inline bool CellTo(const FieldCell& c, DateTime& value) {
  std::string text;
  return CellTo(c, text) && DateTime::Parse(text, value);
}

}  // namespace petrodb::db
