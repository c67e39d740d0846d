#include "dbaccess/postgres/PgValues.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <limits>

namespace petrodb::db::pg {
namespace {

// Days since 1970-01-01 to a civil date (proleptic Gregorian).
void CivilFromDays(std::int64_t z, int& y, unsigned& m, unsigned& d) {
  z += 719468;
  const std::int64_t era = (z >= 0 ? z : z - 146096) / 146097;
  const unsigned doe = static_cast<unsigned>(z - era * 146097);
  const unsigned yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
  const std::int64_t yy = static_cast<std::int64_t>(yoe) + era * 400;
  const unsigned doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
  const unsigned mp = (5 * doy + 2) / 153;
  d = doy - (153 * mp + 2) / 5 + 1;
  m = mp < 10 ? mp + 3 : mp - 9;
  y = static_cast<int>(yy + (m <= 2));
}

// A civil date to days since 1970-01-01.
std::int64_t DaysFromCivil(std::int64_t y, unsigned m, unsigned d) {
  y -= m <= 2;
  const std::int64_t era = (y >= 0 ? y : y - 399) / 400;
  const unsigned yoe = static_cast<unsigned>(y - era * 400);
  const unsigned doy = (153 * (m > 2 ? m - 3 : m + 9) + 2) / 5 + d - 1;
  const unsigned doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
  return era * 146097 + static_cast<std::int64_t>(doe) - 719468;
}

// Digits at `at` as a number; advances past them. -1 when there are none.
std::int64_t Digits(std::string_view text, std::size_t& at) {
  std::int64_t v = 0;
  const std::size_t from = at;
  while (at < text.size() && text[at] >= '0' && text[at] <= '9') v = v * 10 + (text[at++] - '0');
  return at == from ? -1 : v;
}

constexpr std::int64_t kDaysFrom1970To2000 = 10957;
constexpr std::int64_t kMicrosPerDay = 86400LL * 1000000LL;

std::int64_t FloorDiv(std::int64_t a, std::int64_t b) { return a / b - ((a % b != 0) && ((a < 0) != (b < 0))); }

}  // namespace

std::int64_t ReadBigEndian(const char* data, int bytes) {
  std::uint64_t v = 0;
  for (int i = 0; i < bytes; ++i) v = (v << 8) | static_cast<unsigned char>(data[i]);
  // Sign-extend narrower integers.
  if (bytes < 8 && (v >> (bytes * 8 - 1)) & 1) v |= ~std::uint64_t{0} << (bytes * 8);
  return static_cast<std::int64_t>(v);
}

double ReadFloat8(const char* data) {
  const std::uint64_t bits = static_cast<std::uint64_t>(ReadBigEndian(data, 8));
  double d;
  std::memcpy(&d, &bits, sizeof d);
  return d;
}

float ReadFloat4(const char* data) {
  const std::uint32_t bits = static_cast<std::uint32_t>(ReadBigEndian(data, 4));
  float f;
  std::memcpy(&f, &bits, sizeof f);
  return f;
}

std::string DateText(std::int32_t days) {
  if (days == std::numeric_limits<std::int32_t>::max()) return "infinity";
  if (days == std::numeric_limits<std::int32_t>::min()) return "-infinity";
  int y;
  unsigned m, d;
  CivilFromDays(days + kDaysFrom1970To2000, y, m, d);
  char buffer[32];
  std::snprintf(buffer, sizeof buffer, "%04d-%02u-%02u", y, m, d);
  return buffer;
}

std::string TimeText(std::int64_t micros) {
  const std::int64_t seconds = micros / 1000000;
  char buffer[32];
  std::snprintf(buffer, sizeof buffer, "%02d:%02d:%02d", static_cast<int>(seconds / 3600),
                static_cast<int>(seconds / 60 % 60), static_cast<int>(seconds % 60));
  return buffer;
}

std::string TimestampText(std::int64_t micros) {
  if (micros == std::numeric_limits<std::int64_t>::max()) return "infinity";
  if (micros == std::numeric_limits<std::int64_t>::min()) return "-infinity";
  const std::int64_t days = FloorDiv(micros, kMicrosPerDay);
  const std::int64_t inDay = micros - days * kMicrosPerDay;
  return DateText(static_cast<std::int32_t>(days)) + " " + TimeText(inDay);
}

std::string NumericText(const char* data, int length) {
  if (length < 8) return {};
  const int ndigits = static_cast<int>(ReadBigEndian(data, 2));
  const int weight = static_cast<int>(ReadBigEndian(data + 2, 2));
  const unsigned sign = static_cast<unsigned>(ReadBigEndian(data + 4, 2)) & 0xFFFF;
  const int dscale = static_cast<int>(ReadBigEndian(data + 6, 2));
  if (sign == 0xC000) return "NaN";
  if (sign == 0xD000) return "Infinity";
  if (sign == 0xF000) return "-Infinity";
  if (length < 8 + 2 * ndigits) return {};
  auto digit = [&](int i) -> int { return i >= 0 && i < ndigits ? static_cast<int>(ReadBigEndian(data + 8 + 2 * i, 2)) : 0; };
  std::string out;
  if (sign == 0x4000) out += '-';
  // Integer part: base-10000 digits 0..weight.
  if (weight < 0) {
    out += '0';
  } else {
    for (int i = 0; i <= weight; ++i) {
      char group[8];
      std::snprintf(group, sizeof group, i == 0 ? "%d" : "%04d", digit(i));
      out += group;
    }
  }
  if (dscale > 0) {
    out += '.';
    std::string fraction;
    for (int i = weight + 1; static_cast<int>(fraction.size()) < dscale; ++i) {
      char group[8];
      std::snprintf(group, sizeof group, "%04d", digit(i));
      fraction += group;
    }
    fraction.resize(dscale);
    out += fraction;
  }
  if (out == "-0" || (out.rfind("-0.", 0) == 0 && out.find_first_not_of("0.", 1) == std::string::npos)) out.erase(0, 1);
  return out;
}

std::string DoubleText(double value) {
  if (std::isnan(value)) return "NaN";
  if (std::isinf(value)) return value > 0 ? "Infinity" : "-Infinity";
  char buffer[64];
  const auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
  return std::string(buffer, result.ptr);
}

namespace {

// A number with at most four decimals (most depths, coordinates and readings)
// written as a scaled integer: exact, and much cheaper than the shortest form
// in general. False for any other number.
bool AppendFewDecimals(std::string& out, double value) {
  static constexpr double kScale[] = {1, 10, 100, 1000, 10000};
  for (int decimals = 0; decimals < 5; ++decimals) {
    const double scaled = value * kScale[decimals];
    if (!(std::fabs(scaled) < 1e15)) return false;
    const auto whole = static_cast<std::int64_t>(scaled);
    // The division is correctly rounded, as reading the text back is: equal
    // here means the text reads back as this very number.
    if (static_cast<double>(whole) != scaled || static_cast<double>(whole) / kScale[decimals] != value) continue;
    char digits[24];
    const std::uint64_t magnitude = whole < 0 ? 0 - static_cast<std::uint64_t>(whole) : static_cast<std::uint64_t>(whole);
    const int n = static_cast<int>(std::to_chars(digits, digits + sizeof digits, magnitude).ptr - digits);
    if (std::signbit(value)) out += '-';
    if (n <= decimals) {
      out += "0.";
      out.append(static_cast<std::size_t>(decimals - n), '0');
      out.append(digits, static_cast<std::size_t>(n));
    } else {
      out.append(digits, static_cast<std::size_t>(n - decimals));
      if (decimals) {
        out += '.';
        out.append(digits + n - decimals, static_cast<std::size_t>(decimals));
      }
    }
    return true;
  }
  return false;
}

}  // namespace

void AppendDouble(std::string& out, double value) {
  if (!std::isfinite(value)) {
    out += DoubleText(value);
    return;
  }
  if (AppendFewDecimals(out, value)) return;
  char buffer[64];
  out.append(buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr);
}

void AppendCopyText(std::string& out, std::string_view text) {
  if (text.find_first_of("\\\t\n\r") == std::string_view::npos) {
    out += text;
    return;
  }
  for (char c : text) {
    switch (c) {
      case '\\': out += "\\\\"; break;
      case '\t': out += "\\t"; break;
      case '\n': out += "\\n"; break;
      case '\r': out += "\\r"; break;
      default: out += c;
    }
  }
}

void AppendCopyBytea(std::string& out, const void* data, std::size_t size) {
  static const char kHex[] = "0123456789abcdef";
  out += "\\\\x";
  const std::size_t start = out.size();
  out.resize(start + size * 2);
  const auto* bytes = static_cast<const unsigned char*>(data);
  char* p = out.data() + start;
  for (std::size_t i = 0; i < size; ++i) {
    *p++ = kHex[bytes[i] >> 4];
    *p++ = kHex[bytes[i] & 15];
  }
}

std::string TimestampTextFromText(std::string_view text, bool withZone) {
  // Fractions of a second go; everything else stays as the server wrote it.
  std::string out;
  std::size_t i = 0;
  while (i < text.size()) {
    if (text[i] == '.' && i + 1 < text.size() && text[i + 1] >= '0' && text[i + 1] <= '9') {
      ++i;
      while (i < text.size() && text[i] >= '0' && text[i] <= '9') ++i;
      continue;
    }
    out += text[i++];
  }
  if (!withZone) return out;
  // "YYYY-MM-DD HH:MM:SS+HH[:MM[:SS]]" in the session's zone, to UTC.
  std::size_t at = 0;
  const std::int64_t y = Digits(out, at);
  if (y < 0 || at >= out.size() || out[at++] != '-') return out;
  const std::int64_t mo = Digits(out, at);
  if (mo < 1 || mo > 12 || at >= out.size() || out[at++] != '-') return out;
  const std::int64_t d = Digits(out, at);
  if (d < 1 || at >= out.size() || out[at++] != ' ') return out;
  std::int64_t hms[3] = {0, 0, 0};
  for (int k = 0; k < 3; ++k) {
    if (k && (at >= out.size() || out[at++] != ':')) return out;
    if ((hms[k] = Digits(out, at)) < 0) return out;
  }
  if (at >= out.size() || (out[at] != '+' && out[at] != '-')) return out;
  const int sign = out[at++] == '-' ? -1 : 1;
  std::int64_t offset[3] = {0, 0, 0};
  for (int k = 0; k < 3 && at < out.size(); ++k) {
    if (k && out[at++] != ':') return out;
    if ((offset[k] = Digits(out, at)) < 0) return out;
  }
  if (at != out.size()) return out;  // " BC" and the like stay as written
  const std::int64_t seconds = (DaysFromCivil(y, static_cast<unsigned>(mo), static_cast<unsigned>(d)) -
                                kDaysFrom1970To2000) * 86400 + hms[0] * 3600 + hms[1] * 60 + hms[2] -
                               sign * (offset[0] * 3600 + offset[1] * 60 + offset[2]);
  return TimestampText(seconds * 1000000);
}

bool ByteaFromText(std::string_view text, std::string& bytes) {
  if (text.size() < 2 || text[0] != '\\' || text[1] != 'x' || text.size() % 2) return false;
  auto nibble = [](char c) -> int {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
  };
  bytes.resize((text.size() - 2) / 2);
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const int hi = nibble(text[2 + 2 * i]), lo = nibble(text[3 + 2 * i]);
    if (hi < 0 || lo < 0) return false;
    bytes[i] = static_cast<char>(hi << 4 | lo);
  }
  return true;
}

}  // namespace petrodb::db::pg
