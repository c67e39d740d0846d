// petrodb production: one well's production history by calendar month, as an
// aligned table with a total line, or as CSV.
//
// A row whose product time names a day ("2024-01-05", "2024/1/5", "20240105",
// a time of day after it is ignored) is a daily report and counts with its
// daily oil, gas and water; a row that names only a month ("2024-01",
// "202401") is a monthly report and counts with its monthly figures. A month's
// volumes are the sum over its rows; its cumulative oil is that of its latest
// row. A product time that is none of these is an error: the totals would
// otherwise leave the row out silently.
#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "Command.h"
#include "TextTable.h"
#include "petrodb/production/IProductionData.h"

namespace petrodb::cli {
namespace {

// A calendar day; day 0 stands for a whole month.
struct Day {
  int year = 0, month = 0, day = 0;
  int Month() const { return year * 100 + month; }
  int Key() const { return Month() * 100 + day; }
};

bool ReadInt(const std::string& text, std::size_t& at, std::size_t maxDigits, int& value) {
  const std::size_t begin = at;
  while (at < text.size() && at - begin < maxDigits && text[at] >= '0' && text[at] <= '9') ++at;
  return at > begin && std::from_chars(text.data() + begin, text.data() + at, value).ec == std::errc{};
}

// "YYYY-MM-DD", "YYYY-M-D", "YYYY/MM/DD", "YYYY.MM.DD" (anything after a blank
// or a 'T' ignored), "YYYYMMDD", and the month forms "YYYY-MM", "YYYYMM".
std::optional<Day> ParseDay(std::string text) {
  const auto end = text.find_first_of(" T");
  if (end != std::string::npos) text.resize(end);
  Day d;
  std::size_t at = 0;
  const bool digitsOnly = text.find_first_not_of("0123456789") == std::string::npos;
  if (digitsOnly && (text.size() == 6 || text.size() == 8)) {
    d.year = std::stoi(text.substr(0, 4));
    d.month = std::stoi(text.substr(4, 2));
    d.day = text.size() == 8 ? std::stoi(text.substr(6, 2)) : 0;
  } else {
    if (!ReadInt(text, at, 4, d.year) || at != 4 || at >= text.size()) return std::nullopt;
    const char separator = text[at++];
    if (separator != '-' && separator != '/' && separator != '.') return std::nullopt;
    if (!ReadInt(text, at, 2, d.month)) return std::nullopt;
    if (at < text.size() && (text[at++] != separator || !ReadInt(text, at, 2, d.day) || d.day == 0))
      return std::nullopt;
    if (at != text.size()) return std::nullopt;
  }
  if (d.month < 1 || d.month > 12 || d.day < 0 || d.day > 31) return std::nullopt;
  return d;
}

struct MonthTotals {
  int reports = 0;
  double oil = 0, gas = 0, water = 0;
  int latest = -1;  // the key of the row the cumulative comes from
  double cumulativeOil = 0;
};

void Add(MonthTotals& m, const Day& d, const ProductionRecord& r) {
  const bool monthly = d.day == 0;
  ++m.reports;
  m.oil += monthly ? r.MonthlyOilProduction : r.DailyOilProduction;
  m.gas += monthly ? r.MonthlyGasProduction : r.DailyGasProduction;
  m.water += monthly ? r.MonthlyWaterProduction : r.DailyWaterProduction;
  if (d.Key() >= m.latest) {
    m.latest = d.Key();
    m.cumulativeOil = r.CumulativeOilProduction;
  }
}

// Water in the liquid, in percent; "" when there is no liquid.
std::optional<double> WaterCut(const MonthTotals& m) {
  if (m.oil + m.water <= 0) return std::nullopt;
  return 100 * m.water / (m.oil + m.water);
}

// The shortest text that reads back as the same number, never in exponent form.
std::string Exact(double value) {
  char buffer[400];
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed).ptr;
  return std::string(buffer, end);
}

std::string Fixed(double value, int decimals) {
  char buffer[400];
  std::snprintf(buffer, sizeof buffer, "%.*f", decimals, value);
  return buffer;
}

std::vector<std::string> Cells(const std::string& label, const MonthTotals& m, bool csv) {
  const auto number = [csv](double v, int decimals) { return csv ? Exact(v) : Fixed(v, decimals); };
  const auto cut = WaterCut(m);
  return {label,          std::to_string(m.reports), number(m.oil, 2), number(m.gas, 2), number(m.water, 2),
          cut ? number(*cut, 1) : "", number(m.cumulativeOil, 2)};
}

const std::vector<std::string> kHeader{"month", "reports", "oil", "gas", "water", "water cut %", "cumulative oil"};

void PrintTable(const std::vector<std::vector<std::string>>& rows) {
  std::vector<bool> right(kHeader.size(), true);
  right[0] = false;
  TextTable table(std::move(right));
  for (const auto& row : rows) table.Add(row);
  table.Print("");
}

// A CSV cell, quoted when it holds a separator, a quote or a line break.
std::string CsvCell(const std::string& text) {
  if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
  std::string out = "\"";
  for (char c : text) out += c == '"' ? std::string("\"\"") : std::string(1, c);
  return out + "\"";
}

void PrintCsv(const std::vector<std::vector<std::string>>& rows) {
  for (const auto& row : rows) {
    std::string line;
    for (std::size_t j = 0; j < row.size(); ++j) line += (j ? "," : "") + CsvCell(row[j]);
    std::printf("%s\n", line.c_str());
  }
}

int ProductionUsage() {
  std::fprintf(stderr, "usage: petrodb production <file> <well-id> [--from D] [--to D] [--csv]\n");
  return kUsage;
}

// A day of the calendar (a month alone, day 0, always is).
bool OnTheCalendar(const Day& d) {
  using namespace std::chrono;
  return d.day == 0 || year_month_day(year(d.year), month(d.month), day(d.day)).ok();
}

// --from and --to: a day or a month; a month bounds by its first or last day.
bool ParseBound(const Options& options, const char* name, std::optional<Day>& bound) {
  const std::string* text = options.Get(name);
  if (!text) return true;
  bound = ParseDay(*text);
  if (bound && !OnTheCalendar(*bound)) bound.reset();
  if (!bound) PrintError("--" + std::string(name) + " \"" + *text + "\" is not a date (YYYY-MM-DD or YYYY-MM)");
  return bound.has_value();
}

bool InRange(const Day& d, const std::optional<Day>& from, const std::optional<Day>& to) {
  // A monthly report is in range when its month is.
  if (from && (d.day == 0 || from->day == 0 ? d.Month() < from->Month() : d.Key() < from->Key())) return false;
  if (to && (d.day == 0 || to->day == 0 ? d.Month() > to->Month() : d.Key() > to->Key())) return false;
  return true;
}

int Production(const std::vector<std::string>& args) {
  Options options;
  if (!ParseOptions(args, {"from", "to"}, options, {"csv"})) return kUsage;
  if (options.positional.size() != 2) return ProductionUsage();
  const bool csv = options.Has("csv");
  std::optional<Day> from, to;
  if (!ParseBound(options, "from", from) || !ParseBound(options, "to", to)) return kUsage;
  // A month bounds from its first day and to its last.
  if (from && to && from->Month() * 100 + std::max(from->day, 1) > to->Month() * 100 + (to->day ? to->day : 31)) {
    PrintError("the range " + *options.Get("from") + " to " + *options.Get("to") + " is empty");
    return kUsage;
  }
  const std::string &file = options.positional[0], &wellID = options.positional[1];

  if (!CheckProjectFile(file)) return kFailed;
  auto factory = MakeFactory(ProjectConnection(file));
  if (!CheckWellID(*factory, file, wellID)) return kFailed;
  WellProduction history;
  if (!Create<IProductionData>(*factory, "IProductionData")->LoadWellProduction(wellID.c_str(), history)) {
    PrintFailure("cannot read the production history of well " + wellID);
    return kFailed;
  }

  std::map<int, MonthTotals> months;
  MonthTotals total;
  for (const auto& r : history.records) {
    const auto day = ParseDay(r.ProductTime);
    if (!day) {
      PrintError("well " + wellID + ": product time \"" + r.ProductTime + "\" is not a date or a month");
      return kFailed;
    }
    if (!InRange(*day, from, to)) continue;
    Add(months[day->Month()], *day, r);
    Add(total, *day, r);
  }

  std::vector<std::vector<std::string>> rows{kHeader};
  for (const auto& [month, totals] : months) {
    char label[16];
    std::snprintf(label, sizeof label, "%04d-%02d", month / 100, month % 100);
    rows.push_back(Cells(label, totals, csv));
  }
  if (csv) {
    if (!months.empty()) rows.push_back(Cells("total", total, csv));
    PrintCsv(rows);
    return kOk;
  }
  std::printf("well %s\n", wellID.c_str());
  if (months.empty()) {
    std::printf("no production rows%s\n", from || to ? " in the range" : "");
    return kOk;
  }
  rows.push_back(Cells("total", total, csv));
  PrintTable(rows);
  return kOk;
}

const CommandRegistration kProduction{Command{
    "production", "<file> <well-id> [--from D] [--to D] [--csv]",
    "a well's production by month (oil, gas, water, water cut, cumulative oil) with totals; --from/--to take "
    "a day or a month, --csv writes CSV",
    &Production, 2, 2}};

}  // namespace
}  // namespace petrodb::cli
