#include "petrodb/DateTime.h"

#include <cstdio>
#include <ctime>

DateTime DateTime::Now() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  return DateTime{local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec};
}

std::string DateTime::ToIsoText() const {
  char buffer[64];
  std::snprintf(buffer, sizeof buffer, "%04d-%02d-%02d %02d:%02d:%02d", year, month, day, hour, minute, second);
  return buffer;
}

bool DateTime::Parse(const std::string& text, DateTime& out) {
  int y = 0, mo = 0, d = 0, h = 0, mi = 0, s = 0;
  char sep1 = 0, sep2 = 0;
  int used = 0;
  if (std::sscanf(text.c_str(), " %d%c%d%c%d%n", &y, &sep1, &mo, &sep2, &d, &used) != 5) return false;
  if (sep1 != sep2 || (sep1 != '-' && sep1 != '/')) return false;
  const char* rest = text.c_str() + used;
  int more = 0;
  if (*rest) {
    if (std::sscanf(rest, " %d:%d:%d%n", &h, &mi, &s, &more) == 3) {
    } else if (std::sscanf(rest, " %d:%d%n", &h, &mi, &more) == 2) {
      s = 0;
    } else {
      more = 0;
    }
    rest += more;
    while (*rest == ' ') ++rest;
    if (*rest) return false;
  }
  if (mo < 1 || mo > 12 || d < 1 || d > 31 || h < 0 || h > 23 || mi < 0 || mi > 59 || s < 0 || s > 59) return false;
  out = DateTime{y, mo, d, h, mi, s};
  return true;
}
