#pragma once
// Calendar date and time of day, to the second, in local time.
#include <string>

#include "petrodb/Export.h"

struct PETRODB_API DateTime {
  int year = 1899, month = 12, day = 30, hour = 0, minute = 0, second = 0;

  static DateTime Now();
  // "YYYY-MM-DD HH:MM:SS", the form date columns hold.
  std::string ToIsoText() const;
  // Reads "Y-M-D[ H:M[:S]]" with or without leading zeros (also "Y/M/D").
  static bool Parse(const std::string& text, DateTime& out);
  friend bool operator==(const DateTime&, const DateTime&) = default;
};
