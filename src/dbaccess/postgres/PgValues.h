#pragma once
// Values between the session and PostgreSQL: binary result cells decoded to
// what the session reads, and cells written as COPY or parameter text.
#include <cstdint>
#include <string>
#include <string_view>

namespace petrodb::db::pg {

// Type oids of the built-in types results carry.
enum : unsigned {
  kBool = 16,
  kBytea = 17,
  kChar = 18,
  kName = 19,
  kInt8 = 20,
  kInt2 = 21,
  kInt4 = 23,
  kText = 25,
  kOid = 26,
  kFloat4 = 700,
  kFloat8 = 701,
  kUnknown = 705,
  kBpchar = 1042,
  kVarchar = 1043,
  kDate = 1082,
  kTime = 1083,
  kTimestamp = 1114,
  kTimestampTz = 1184,
  kNumeric = 1700,
};

std::int64_t ReadBigEndian(const char* data, int bytes);
double ReadFloat8(const char* data);
float ReadFloat4(const char* data);

// Binary timestamp (microseconds since 2000-01-01) as "YYYY-MM-DD HH:MM:SS";
// fractions of a second are dropped, as timestamp(0) columns hold none.
std::string TimestampText(std::int64_t micros);
// Binary date (days since 2000-01-01) as "YYYY-MM-DD".
std::string DateText(std::int32_t days);
// Binary time (microseconds since midnight) as "HH:MM:SS".
std::string TimeText(std::int64_t micros);
// Binary numeric as its decimal text ("-12.50", "NaN").
std::string NumericText(const char* data, int length);

// Text-format result cells, read to the same values as their binary forms:
// a timestamp, time or timestamptz text without fractions of a second (a
// timestamptz moved to UTC, as its binary form is), and a hex bytea ("\\x0a1b")
// as its bytes. False when the text is not of that form.
std::string TimestampTextFromText(std::string_view text, bool withZone);
bool ByteaFromText(std::string_view text, std::string& bytes);

// A double as text that reads back the same number ("NaN", "Infinity" included).
std::string DoubleText(double value);
// Appends a double as text that reads back the same number, without a
// temporary (a number with few decimals in plain form, so not always the
// text DoubleText gives).
void AppendDouble(std::string& out, double value);
// Appends `text` escaped for COPY's text format.
void AppendCopyText(std::string& out, std::string_view text);
// Appends bytes as a COPY text-format bytea value ("\\x0a1b...").
void AppendCopyBytea(std::string& out, const void* data, std::size_t size);

}  // namespace petrodb::db::pg
