#include "formats/Las.h"

#include <cerrno>
#include <charconv>
#include <cstring>
#include <filesystem>
#include <cmath>
#include <fstream>
#include <istream>
#include <iterator>
#include <map>
#include <ostream>
#include <set>
#include <sstream>
#include <string_view>

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

// Line breaks (LF, CR) and the end-of-file byte end or cut a line wherever
// they stand.
constexpr const char* kLineBreaks = "\n\r\x1a";

bool Blank(char c) { return c == ' ' || c == '\t'; }

// Why a header text cannot be written so that it reads back the same, or "".
std::string TextProblem(const std::string& text, bool mnemonic, bool unit, bool description) {
  if (text.find_first_of(kLineBreaks) != std::string::npos) return "holds a line break or an end-of-file byte";
  if (mnemonic) {
    if (text.find_first_of(" \t") != std::string::npos) return "holds a blank";
    if (text.find('.') != std::string::npos) return "holds a '.' (it ends the mnemonic)";
    if (text.find(':') != std::string::npos) return "holds a ':' (it starts the description)";
    if (!text.empty() && text[0] == '#') return "begins with '#' (a comment line)";
    if (!text.empty() && text[0] == '~') return "begins with '~' (a section line)";
    return {};
  }
  if (unit) return text.find_first_of(" \t") != std::string::npos ? "holds a blank (it ends the unit)" : "";
  if (description && text.find(':') != std::string::npos) return "holds a ':' (the last one starts the description)";
  if (!text.empty() && (Blank(text.front()) || Blank(text.back()))) return "begins or ends with a blank";
  return {};
}

// A text for an error message: control characters shown as \n, \r, \xNN.
std::string Shown(const std::string& text) {
  static const char digits[] = "0123456789ABCDEF";
  std::string out;
  for (const char c : text) {
    const auto u = static_cast<unsigned char>(c);
    if (c == '\n') out += "\\n";
    else if (c == '\r') out += "\\r";
    else if (u < 0x20 || u == 0x7f) out += std::string("\\x") + digits[u >> 4] + digits[u & 15];
    else out += c;
  }
  return out;
}

// The first text of an item or curve that cannot be written, as an error.
bool CheckItem(const char* what, const std::string& mnemonic, const std::string& unit, const std::string& value,
               const std::string& description, std::string& error) {
  const struct {
    const char* field;
    const std::string& text;
    bool mnemonic, unit, description;
  } fields[] = {{"mnemonic", mnemonic, true, false, false},
                {"unit", unit, false, true, false},
                {"value", value, false, false, false},
                {"description", description, false, false, true}};
  for (const auto& f : fields) {
    const std::string problem = TextProblem(f.text, f.mnemonic, f.unit, f.description);
    if (problem.empty()) continue;
    error = std::string(what) + " \"" + Shown(mnemonic) + "\": the " + f.field + " \"" + Shown(f.text) + "\" " + problem +
            "; a LAS file cannot carry it";
    return false;
  }
  return true;
}

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

namespace {

// The next line of `text` from `pos`, without its end (LF, CR-LF or CR alone).
bool NextLine(std::string_view text, std::size_t& pos, std::string_view& line) {
  if (pos >= text.size()) return false;
  const std::size_t end = text.find_first_of("\r\n", pos);
  if (end == std::string_view::npos) {
    line = text.substr(pos);
    pos = text.size();
    return true;
  }
  line = text.substr(pos, end - pos);
  pos = end + (text[end] == '\r' && end + 1 < text.size() && text[end + 1] == '\n' ? 2 : 1);
  return true;
}

bool ReadText(std::string_view content, File& file, std::string& error) {
  file = File();
  if (content.substr(0, 3) == "\xEF\xBB\xBF") content.remove_prefix(3);
  char section = 0;
  bool sawVersion = false, sawData = false;
  std::vector<double> data;
  std::set<std::string> names;              // curve mnemonics so far, upper case
  std::map<std::string, int> nextSuffix;    // per duplicated mnemonic, the next "_n" to try
  std::string_view view;
  std::size_t pos = 0;
  int number = 0;
  while (NextLine(content, pos, view)) {
    ++number;
    std::string line(view);
    while (!line.empty() && line.back() == '\x1a') line.pop_back();
    const std::string text = Trim(line);
    if (text.empty() || text[0] == '#') continue;
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
        if (!names.insert(Upper(curve.mnemonic)).second) {
          const std::string base = curve.mnemonic;
          int& n = nextSuffix[Upper(base)];
          if (n < 2) n = 2;
          std::string renamed = base + "_" + std::to_string(n++);
          while (!names.insert(Upper(renamed)).second) renamed = base + "_" + std::to_string(n++);
          file.warnings.push_back("duplicate curve " + base + " renamed " + renamed);
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
    for (std::size_t r = 0; r < rows; ++r) values.push_back(data[r * width + c]);
  }
  return true;
}

}  // namespace

bool Read(std::istream& in, File& file, std::string& error) {
  std::string content;
  try {
    content.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  } catch (const std::exception& e) {  // a read error of the stream (an I/O error, a directory)
    file = File();
    error = std::string("cannot read: ") + e.what();
    return false;
  }
  if (in.bad()) {
    file = File();
    error = "cannot read the file";
    return false;
  }
  return ReadText(content, file, error);
}

bool ReadFile(const std::string& path, File& file, std::string& error) {
  std::error_code ec;
  if (std::filesystem::is_directory(path, ec)) {
    error = path + " is a directory, not a LAS file";
    return false;
  }
  std::ifstream in(path, std::ios::binary);
  if (!in) {
    error = "cannot open " + path + ": " + std::strerror(errno);
    return false;
  }
  return Read(in, file, error);
}

std::string MnemonicProblem(const std::string& mnemonic) {
  if (mnemonic.empty()) return "is empty";
  return TextProblem(mnemonic, true, false, false);
}

bool Write(std::ostream& out, const File& file, std::string& error) {
  if (file.curves.empty()) {
    error = "no curves to write";
    return false;
  }
  const auto& index = file.curves.front().values;
  std::set<std::string> names;
  for (const auto& curve : file.curves) {
    if (curve.mnemonic.empty()) {
      error = "a curve has no mnemonic";
      return false;
    }
    if (!CheckItem("curve", curve.mnemonic, curve.unit, "", curve.description, error)) return false;
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
  for (const auto& item : file.well)
    if (!CheckItem("well item", item.mnemonic, item.unit, item.value, item.description, error)) return false;
  for (const auto& item : file.parameters)
    if (!CheckItem("parameter", item.mnemonic, item.unit, item.value, item.description, error)) return false;
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

}  // namespace petrodb::las
