#include "formats/Las.h"

#include <charconv>
#include <cmath>
#include <fstream>
#include <istream>
#include <ostream>
#include <set>
#include <sstream>

#include "petrodb/welllog/ILogData.h"

namespace petrodb::las {
namespace {

std::string Trim(const std::string& s) {
  const auto first = s.find_first_not_of(" \t");
  if (first == std::string::npos) return {};
  return s.substr(first, s.find_last_not_of(" \t") - first + 1);
}

std::string Upper(std::string s) {
  for (char& c : s)
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  return s;
}

bool ParseNumber(const std::string& text, double& value) {
  const char* begin = text.data();
  const char* end = begin + text.size();
  if (begin != end && *begin == '+') ++begin;
  const auto [ptr, ec] = std::from_chars(begin, end, value);
  return ec == std::errc() && ptr == end;
}

// "MNEM.UNIT  VALUE : DESCRIPTION"; the unit ends at the first blank after the
// period, the description starts after the last colon.
Item ParseItem(const std::string& line) {
  Item item;
  std::string rest = line;
  const auto colon = rest.rfind(':');
  if (colon != std::string::npos) {
    item.description = Trim(rest.substr(colon + 1));
    rest = rest.substr(0, colon);
  }
  const auto dot = rest.find('.');
  if (dot == std::string::npos) {
    std::istringstream words(rest);
    words >> item.mnemonic;
    std::getline(words, item.value);
    item.value = Trim(item.value);
    return item;
  }
  item.mnemonic = Trim(rest.substr(0, dot));
  const auto unitEnd = rest.find_first_of(" \t", dot + 1);
  item.unit = rest.substr(dot + 1, unitEnd == std::string::npos ? std::string::npos : unitEnd - dot - 1);
  if (unitEnd != std::string::npos) item.value = Trim(rest.substr(unitEnd));
  return item;
}

bool ValidMnemonic(const std::string& m) { return !m.empty() && m.find_first_of(" \t.:~") == std::string::npos; }

}  // namespace

const Item* File::WellItem(const std::string& mnemonic) const {
  for (const auto& item : well)
    if (Upper(item.mnemonic) == Upper(mnemonic)) return &item;
  return nullptr;
}

std::string FormatNumber(double value) {
  char buffer[64];
  const auto [end, ec] = std::to_chars(buffer, buffer + sizeof buffer, value);
  return ec == std::errc() ? std::string(buffer, end) : std::string("nan");
}

bool Read(std::istream& in, File& file, std::string& error) {
  file = File();
  char section = 0;
  bool sawVersion = false, sawData = false;
  std::vector<double> data;
  std::set<std::string> names;
  std::string line;
  int number = 0;
  while (std::getline(in, line)) {
    ++number;
    while (!line.empty() && (line.back() == '\r' || line.back() == '\x1a')) line.pop_back();
    const std::string text = Trim(line);
    if (text.empty() || text[0] == '#' || text == "\x1a") continue;
    if (text[0] == '~') {
      section = text.size() > 1 ? static_cast<char>(std::toupper(static_cast<unsigned char>(text[1]))) : '?';
      sawVersion = sawVersion || section == 'V';
      sawData = sawData || section == 'A';
      continue;
    }
    switch (section) {
      case 'V': {
        const Item item = ParseItem(text);
        const std::string key = Upper(item.mnemonic);
        if (key == "WRAP") file.wrapped = Upper(item.value) == "YES";
        if (key == "VERS" && !item.value.empty() && item.value[0] != '2')
          file.warnings.push_back("version " + item.value + " read as 2.0");
        break;
      }
      case 'W': {
        Item item = ParseItem(text);
        if (Upper(item.mnemonic) == "NULL") {
          if (!ParseNumber(item.value, file.nullValue)) {
            error = "line " + std::to_string(number) + ": NULL is not a number: " + item.value;
            return false;
          }
          file.hasNull = true;
        }
        file.well.push_back(std::move(item));
        break;
      }
      case 'P':
        file.parameters.push_back(ParseItem(text));
        break;
      case 'C': {
        const Item item = ParseItem(text);
        Curve curve{item.mnemonic, item.unit, item.description, {}};
        if (curve.mnemonic.empty()) curve.mnemonic = "CURVE" + std::to_string(file.curves.size() + 1);
        for (int n = 2; !names.insert(Upper(curve.mnemonic)).second; ++n) {
          const std::string renamed = item.mnemonic + "_" + std::to_string(n);
          if (names.count(Upper(renamed))) continue;
          file.warnings.push_back("duplicate curve " + item.mnemonic + " renamed " + renamed);
          curve.mnemonic = renamed;
        }
        file.curves.push_back(std::move(curve));
        break;
      }
      case 'A': {
        std::istringstream words(text);
        std::string word;
        while (words >> word) {
          double value;
          if (!ParseNumber(word, value)) {
            error = "line " + std::to_string(number) + ": not a number: " + word;
            return false;
          }
          data.push_back(value);
        }
        break;
      }
      default:
        break;  // ~O and unknown sections
    }
  }
  if (!sawVersion && !sawData) {
    error = "not a LAS file (no ~V or ~A section)";
    return false;
  }
  if (file.curves.empty()) {
    error = "no curves in the ~C section";
    return false;
  }
  // Wrapped or not, the samples run depth step by depth step.
  const std::size_t width = file.curves.size();
  const std::size_t rows = data.size() / width;
  if (data.size() % width != 0)
    file.warnings.push_back("the data end in the middle of a depth step; the incomplete step is dropped");
  for (std::size_t c = 0; c < width; ++c) {
    auto& values = file.curves[c].values;
    values.reserve(rows);
    for (std::size_t r = 0; r < rows; ++r) {
      values.push_back(data[r * width + c]);
    }
  }
  return true;
}

bool ReadFile(const std::string& path, File& file, std::string& error) {
  std::ifstream in(path, std::ios::binary);
  if (!in) {
    error = "cannot open " + path;
    return false;
  }
  return Read(in, file, error);
}

bool Write(std::ostream& out, const File& file, std::string& error) {
  if (file.curves.empty()) {
    error = "no curves to write";
    return false;
  }
  const auto& index = file.curves.front().values;
  std::set<std::string> names;
  for (const auto& curve : file.curves) {
    if (!ValidMnemonic(curve.mnemonic)) {
      error = "curve mnemonic cannot be written: \"" + curve.mnemonic + "\"";
      return false;
    }
    if (!names.insert(Upper(curve.mnemonic)).second) {
      error = "duplicate curve mnemonic " + curve.mnemonic;
      return false;
    }
    if (curve.values.size() != index.size()) {
      error = "curve " + curve.mnemonic + " has " + std::to_string(curve.values.size()) + " samples, the index " +
              std::to_string(index.size());
      return false;
    }
  }
  const std::string& unit = file.curves.front().unit;
  double step = 0.0;
  if (index.size() > 1) {
    step = index[1] - index[0];
    for (std::size_t i = 2; i < index.size(); ++i)
      if (index[i] - index[i - 1] != step) step = 0.0;
  }
  auto line = [&out](const std::string& mnemonic, const std::string& u, const std::string& value,
                     const std::string& description) {
    std::string head = " " + mnemonic + "." + u;
    if (head.size() < 16) head.resize(16, ' ');
    out << head << " " << value << " : " << description << "\n";
  };
  out << "~VERSION INFORMATION\n";
  line("VERS", "", "2.0", "CWLS LOG ASCII STANDARD - VERSION 2.0");
  line("WRAP", "", "NO", "ONE LINE PER DEPTH STEP");
  out << "~WELL INFORMATION\n";
  line("STRT", unit, index.empty() ? "0" : FormatNumber(index.front()), "START DEPTH");
  line("STOP", unit, index.empty() ? "0" : FormatNumber(index.back()), "STOP DEPTH");
  line("STEP", unit, FormatNumber(step), "STEP");
  line("NULL", "", FormatNumber(file.nullValue), "NULL VALUE");
  for (const auto& item : file.well) {
    const std::string key = Upper(item.mnemonic);
    if (key == "STRT" || key == "STOP" || key == "STEP" || key == "NULL") continue;
    line(item.mnemonic, item.unit, item.value, item.description);
  }
  out << "~CURVE INFORMATION\n";
  for (const auto& curve : file.curves) line(curve.mnemonic, curve.unit, "", curve.description);
  if (!file.parameters.empty()) {
    out << "~PARAMETER INFORMATION\n";
    for (const auto& item : file.parameters) line(item.mnemonic, item.unit, item.value, item.description);
  }
  out << "~ASCII\n";
  for (std::size_t r = 0; r < index.size(); ++r) {
    for (std::size_t c = 0; c < file.curves.size(); ++c)
      out << (c ? " " : "") << FormatNumber(file.curves[c].values[r]);
    out << "\n";
  }
  if (!out) {
    error = "write failed";
    return false;
  }
  return true;
}

void ToWellLog(const File& file, const std::string& wellID, WellLog& log) {
  log.WellID = wellID;
  log.NullValue = file.nullValue;
  log.Curves.clear();
  for (const auto& curve : file.curves)
    log.Curves.push_back(LogCurve{curve.mnemonic, curve.unit, nullptr, curve.values});
  std::vector<std::string> depthNames(log.Curves.size(), file.curves.front().mnemonic);
  log.Link(depthNames);
}

}  // namespace petrodb::las
