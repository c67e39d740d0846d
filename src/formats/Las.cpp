#include "formats/Las.h"

#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <filesystem>
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

std::string Trim(std::string_view s) {
  const auto first = s.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  return std::string(s.substr(first, s.find_last_not_of(" \t") - first + 1));
}

std::string Upper(std::string s) {
  for (char& c : s)
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  return s;
}

bool Digit(char c) { return c >= '0' && c <= '9'; }
bool Blank(char c) { return c == ' ' || c == '\t'; }

// A plain decimal number ("12", "-.5", "1e3"); not "nan" or "inf", which the
// data read as NULL tokens.
bool ParseNumber(std::string_view text, double& value) {
  const char* begin = text.data();
  const char* end = begin + text.size();
  if (begin != end && *begin == '+') ++begin;
  const char* p = begin;
  if (p != end && *p == '-') ++p;
  if (p != end && *p == '.') ++p;
  if (p == end || !Digit(*p)) return false;
  const auto [ptr, ec] = std::from_chars(begin, end, value);
  return ec == std::errc() && ptr == end;
}

// "1670,5": digits, one comma, digits (an exponent may follow).
bool ParseCommaNumber(std::string_view text, double& value) {
  const auto comma = text.find(',');
  if (comma == std::string_view::npos || text.find(',', comma + 1) != std::string_view::npos ||
      text.find('.') != std::string_view::npos || comma == 0 || !Digit(text[comma - 1]) ||
      comma + 1 >= text.size() || !Digit(text[comma + 1]))
    return false;
  std::string dotted(text);
  dotted[comma] = '.';
  return ParseNumber(dotted, value);
}

// A header number (NULL): a plain or decimal-comma number, or what from_chars
// reads ("NaN", "inf").
bool ParseHeaderNumber(const std::string& text, double& value) {
  if (ParseNumber(text, value) || ParseCommaNumber(text, value)) return true;
  const char* begin = text.data();
  const char* end = begin + text.size();
  if (begin != end && *begin == '+') ++begin;
  const auto [ptr, ec] = std::from_chars(begin, end, value);
  return begin != end && ec == std::errc() && ptr == end;
}

// Tokens that stand for a missing value in the data.
bool NullToken(std::string_view token) {
  if (token.empty()) return true;
  if (token.find_first_not_of('*') == std::string_view::npos) return true;
  static const char* const kTokens[] = {"(null)", "null",  "-",     "--",   "nan",     "-nan",      "+nan",
                                        "inf",    "-inf",  "+inf",  "infinity", "-infinity", "+infinity",
                                        "err",    "error", "#n/a",  "n/a",  "na",      "#value!",   "#div/0!"};
  std::string lower(token);
  for (char& c : lower)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  for (const char* t : kTokens)
    if (lower == t) return true;
  return false;
}

// A ruler: dashes, '=' or '_' and blanks only, at least one of them.
bool RulerText(std::string_view text) {
  return text.find_first_not_of(" \t") != std::string_view::npos &&
         text.find_first_not_of("-=_ \t") == std::string_view::npos;
}

// A header line the reader skips: a ruler, or the title "MNEM.UNIT ...".
bool SkippedHeader(const Item& item, bool curve) {
  const std::string all = item.mnemonic + item.unit + item.value + item.description;
  if (RulerText(all)) return true;
  return curve && Upper(item.mnemonic) == "MNEM" && Upper(item.unit) == "UNIT";
}

// "MNEM.UNIT  VALUE : DESCRIPTION" (see Las.h for the dots of a mnemonic).
Item ParseItem(const std::string& line, bool version3) {
  Item item;
  std::string rest = line;
  auto colon = rest.rfind(':');
  if (version3) {  // "... : DESCRIPTION {F} | association"
    const auto bar = rest.rfind('|');
    if (bar != std::string::npos && (colon == std::string::npos || bar > colon)) rest.resize(bar);
    colon = rest.rfind(':');
  }
  if (colon != std::string::npos) {
    item.description = Trim(std::string_view(rest).substr(colon + 1));
    rest.resize(colon);
    if (version3 && !item.description.empty() && item.description.back() == '}') {
      const auto brace = item.description.rfind('{');
      if (brace != std::string::npos) item.description = Trim(std::string_view(item.description).substr(0, brace));
    }
  }
  const auto start = rest.find_first_not_of(" \t");
  if (start == std::string::npos) return item;
  rest.erase(0, start);
  std::size_t dot = rest.find('.');
  if (dot == std::string::npos) {
    std::istringstream words(rest);
    words >> item.mnemonic;
    std::getline(words, item.value);
    item.value = Trim(item.value);
    return item;
  }
  const auto firstBlank = rest.find_first_of(" \t");
  const auto second = rest.find('.', 1);
  const auto twoDots = rest.find("..");
  const bool blankAfterDot = dot + 1 == rest.size() || Blank(rest[dot + 1]);
  if (dot == 0 && second != std::string::npos && (firstBlank == std::string::npos || second < firstBlank))
    dot = second;  // ".TEMP.DEGC": the mnemonic begins with a dot
  else if (dot + 1 < rest.size() && rest[dot + 1] == '.')
    dot = dot + 1;  // "Cond..mS/m": the mnemonic ends with a dot
  else if (blankAfterDot && twoDots != std::string::npos)
    dot = twoDots + 1;  // "I. Res..OHMM": a mnemonic with blanks and dots
  item.mnemonic = Trim(std::string_view(rest).substr(0, dot));
  const auto unitEnd = rest.find_first_of(" \t", dot + 1);
  item.unit = rest.substr(dot + 1, unitEnd == std::string::npos ? std::string::npos : unitEnd - dot - 1);
  if (unitEnd != std::string::npos) item.value = Trim(std::string_view(rest).substr(unitEnd));
  return item;
}

// Line breaks (LF, CR) and the end-of-file byte end or cut a line wherever
// they stand.
constexpr const char* kLineBreaks = "\n\r\x1a";

bool ValidUtf8(std::string_view text) {
  for (std::size_t i = 0; i < text.size();) {
    const auto c = static_cast<unsigned char>(text[i]);
    const int extra = c < 0x80 ? 0 : (c & 0xE0) == 0xC0 && c >= 0xC2 ? 1 : (c & 0xF0) == 0xE0 ? 2
                                  : (c & 0xF8) == 0xF0 && c <= 0xF4 ? 3 : -1;
    if (extra < 0 || i + extra >= text.size() + (extra ? 0 : 1)) return false;
    for (int k = 1; k <= extra; ++k)
      if ((static_cast<unsigned char>(text[i + k]) & 0xC0) != 0x80) return false;
    i += extra + 1;
  }
  return true;
}

// Why a header text cannot be written so that it reads back the same, or "".
std::string TextProblem(const std::string& text, bool mnemonic, bool unit, bool description) {
  if (text.find_first_of(kLineBreaks) != std::string::npos) return "holds a line break or an end-of-file byte";
  // The reader takes a file with NUL bytes for UTF-16, and one that is not UTF-8 for Latin-1.
  if (text.find('\0') != std::string::npos) return "holds a NUL byte";
  if (!ValidUtf8(text)) return "is not UTF-8";
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
               const std::string& description, bool curve, std::string& error) {
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
  // Dots the reader would take as part of the mnemonic ("GR..5", "GR.  ..5", ".a.b").
  const char* dots = !unit.empty() && unit[0] == '.'                             ? "the unit begins with '.'"
                     : unit.empty() && value.find("..") != std::string::npos     ? "the value holds \"..\" after an empty unit"
                     : mnemonic.empty() && unit.find('.') != std::string::npos ? "the unit of an empty mnemonic holds a '.'"
                                                                                 : nullptr;
  if (dots) {
    error = std::string(what) + " \"" + Shown(mnemonic) + "\": " + dots + "; a LAS file cannot carry it";
    return false;
  }
  if (SkippedHeader(Item{mnemonic, unit, value, description}, curve)) {
    error = std::string(what) + " \"" + Shown(mnemonic) + "\": the line would read as a ruler or title line";
    return false;
  }
  return true;
}

bool SameBits(double a, double b) {
  if (std::isnan(a) || std::isnan(b)) return std::isnan(a) && std::isnan(b);
  return std::memcmp(&a, &b, sizeof a) == 0;
}

}  // namespace

const Item* File::WellItem(const std::string& mnemonic) const {
  for (const auto& item : well)
    if (Upper(item.mnemonic) == Upper(mnemonic)) return &item;
  return nullptr;
}

bool File::IsNull(double value) const {
  return hasNull && (value == nullValue || (std::isnan(value) && std::isnan(nullValue)));
}

std::string FormatNumber(double value) {
  char buffer[64];
  const auto [end, ec] = std::to_chars(buffer, buffer + sizeof buffer, value);
  return ec == std::errc() ? std::string(buffer, end) : std::string("nan");
}

std::string StorableName(const std::string& mnemonic) {
  std::string out;
  std::size_t i = 0;
  while (i < mnemonic.size() && (mnemonic[i] == '#' || mnemonic[i] == '~')) ++i;
  for (; i < mnemonic.size(); ++i) {
    const auto u = static_cast<unsigned char>(mnemonic[i]);
    const bool bad = u < 0x20 || u == 0x7f || u == ' ' || u == '.' || u == ':' || u == '\'' || u == '"';
    if (!bad) {
      out += mnemonic[i];
    } else if (!out.empty() && out.back() != '_') {
      out += '_';
    }
  }
  while (!out.empty() && out.back() == '_') out.pop_back();
  while (!out.empty() && (out[0] == '#' || out[0] == '~'))  // "#.#" left "#"
    out.erase(0, out.find_first_not_of("#~_"));
  return RulerText(out) ? std::string() : out;
}

namespace {

void AppendUtf8(std::string& out, std::uint32_t code) {
  if (code < 0x80) {
    out += static_cast<char>(code);
  } else if (code < 0x800) {
    out += static_cast<char>(0xC0 | code >> 6);
    out += static_cast<char>(0x80 | (code & 0x3F));
  } else if (code < 0x10000) {
    out += static_cast<char>(0xE0 | code >> 12);
    out += static_cast<char>(0x80 | (code >> 6 & 0x3F));
    out += static_cast<char>(0x80 | (code & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | code >> 18);
    out += static_cast<char>(0x80 | (code >> 12 & 0x3F));
    out += static_cast<char>(0x80 | (code >> 6 & 0x3F));
    out += static_cast<char>(0x80 | (code & 0x3F));
  }
}

std::string FromUtf16(std::string_view bytes, bool little) {
  std::string out;
  out.reserve(bytes.size() / 2);
  auto unit = [&](std::size_t i) {
    const auto a = static_cast<unsigned char>(bytes[i]), b = static_cast<unsigned char>(bytes[i + 1]);
    return static_cast<std::uint32_t>(little ? a | b << 8 : a << 8 | b);
  };
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    std::uint32_t code = unit(i);
    if (code >= 0xD800 && code < 0xDC00 && i + 3 < bytes.size() && unit(i + 2) >= 0xDC00 && unit(i + 2) < 0xE000) {
      code = 0x10000 + ((code - 0xD800) << 10) + (unit(i + 2) - 0xDC00);
      i += 2;
    } else if (code >= 0xD800 && code < 0xE000) {
      code = 0xFFFD;
    }
    AppendUtf8(out, code);
  }
  return out;
}

// Windows-1252 (Latin-1 where it leaves a byte undefined) to UTF-8.
std::string FromCp1252(std::string_view bytes) {
  static const std::uint16_t k80[32] = {0x20AC, 0x81,   0x201A, 0x192,  0x201E, 0x2026, 0x2020, 0x2021,
                                        0x2C6,  0x2030, 0x160,  0x2039, 0x152,  0x8D,   0x17D,  0x8F,
                                        0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                        0x2DC,  0x2122, 0x161,  0x203A, 0x153,  0x9D,   0x17E,  0x178};
  std::string out;
  out.reserve(bytes.size());
  for (const char c : bytes) {
    const auto u = static_cast<unsigned char>(c);
    AppendUtf8(out, u >= 0x80 && u < 0xA0 ? k80[u - 0x80] : u);
  }
  return out;
}

// The file's text as UTF-8, and a note when it was another encoding.
std::string Decode(std::string_view raw, std::vector<std::string>& warnings) {
  if (raw.substr(0, 3) == "\xEF\xBB\xBF") raw.remove_prefix(3);
  else if (raw.substr(0, 2) == "\xFF\xFE" || raw.substr(0, 2) == "\xFE\xFF") {
    const bool little = raw[0] == '\xFF';
    warnings.push_back(std::string("read as UTF-16") + (little ? "LE" : "BE"));
    return FromUtf16(raw.substr(2), little);
  } else {
    // UTF-16 without a byte order mark: ASCII text gives a zero byte in every
    // pair, on the high side.
    const std::size_t pairs = std::min<std::size_t>(raw.size(), 4096) / 2;
    std::size_t evenZeros = 0, oddZeros = 0;
    for (std::size_t i = 0; i < pairs; ++i) {
      evenZeros += raw[2 * i] == '\0';
      oddZeros += raw[2 * i + 1] == '\0';
    }
    if (pairs >= 4 && (oddZeros * 10 >= pairs * 7) != (evenZeros * 10 >= pairs * 7) &&
        std::min(oddZeros, evenZeros) * 20 < pairs) {
      const bool little = oddZeros > evenZeros;
      warnings.push_back(std::string("read as UTF-16") + (little ? "LE" : "BE") + " (no byte order mark)");
      return FromUtf16(raw, little);
    }
  }
  if (ValidUtf8(raw)) return std::string(raw);
  warnings.push_back("not UTF-8; read as Latin-1 (Windows-1252)");
  return FromCp1252(raw);
}

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

enum class Section { None, Version, Well, Curve, Parameter, Other, Data, Skipped };

std::string At(int line) { return "line " + std::to_string(line) + ": "; }

// What a section line names; false with an error for a section that cannot be read.
bool SectionOf(const std::string& text, int line, Section& section, std::string& error) {
  std::string name = text.substr(1);
  name = Upper(name.substr(0, name.find_first_of(" \t|")));
  const std::string shown = "~" + Trim(text.substr(1, text.find('|') == std::string::npos ? std::string::npos
                                                                                            : text.find('|') - 1));
  const std::string base = name.substr(0, name.find('['));
  struct Prefix {
    const char* prefix;
    Section section;
  };
  for (const Prefix& p : {Prefix{"VERSION", Section::Version}, Prefix{"WELL", Section::Well},
                          Prefix{"CURVE", Section::Curve}, Prefix{"PARAMETER", Section::Parameter},
                          Prefix{"ASCII", Section::Data}, Prefix{"OTHER", Section::Other},
                          Prefix{"LOG_DEFINITION", Section::Curve}, Prefix{"LOG_PARAMETER", Section::Parameter},
                          Prefix{"LOG_DATA", Section::Data}}) {
    if (base.rfind(p.prefix, 0) == 0) {
      section = p.section;
      return true;
    }
  }
  if (base.find('_') != std::string::npos) {
    if (base.size() > 5 && base.compare(base.size() - 5, 5, "_DATA") == 0) {
      error = At(line) + "the LAS 3.0 data section " + shown +
              " is not supported; only a log (~Log_Definition and ~Log_Data) is read";
      return false;
    }
    section = Section::Skipped;  // the definition or parameters of another LAS 3.0 data set
    return true;
  }
  switch (base.empty() ? '?' : base[0]) {
    case 'V': section = Section::Version; break;
    case 'W': section = Section::Well; break;
    case 'C': section = Section::Curve; break;
    case 'P': section = Section::Parameter; break;
    case 'A': section = Section::Data; break;
    default: section = Section::Other; break;
  }
  return true;
}

// A count of lines noted once: "<count> lines ... (the first is line N)".
struct Tally {
  std::size_t count = 0;
  int first = 0;
  void Add(int line) {
    if (!count++) first = line;
  }
  std::string Lines() const {
    return count == 1 ? "line " + std::to_string(first)
                      : std::to_string(count) + " lines (the first is line " + std::to_string(first) + ")";
  }
};

enum class Delimiter { Blanks, Comma, Tab };

void Split(std::string_view line, Delimiter delimiter, std::vector<std::string_view>& tokens) {
  tokens.clear();
  if (delimiter == Delimiter::Blanks) {
    std::size_t i = 0;
    while (true) {
      i = line.find_first_not_of(" \t", i);
      if (i == std::string_view::npos) return;
      const std::size_t end = std::min(line.find_first_of(" \t", i), line.size());
      tokens.push_back(line.substr(i, end - i));
      i = end;
    }
  }
  const char separator = delimiter == Delimiter::Comma ? ',' : '\t';
  std::size_t i = 0;
  while (true) {
    const std::size_t end = std::min(line.find(separator, i), line.size());
    std::string_view token = line.substr(i, end - i);
    const auto first = token.find_first_not_of(" \t");
    token = first == std::string_view::npos ? std::string_view() : token.substr(first, token.find_last_not_of(" \t") - first + 1);
    tokens.push_back(token);
    if (end == line.size()) return;
    i = end + 1;
  }
}

struct DataLine {
  int number;
  std::string_view text;
};

// The samples of the data lines into the curves, by the value-count rule.
bool ReadData(const std::vector<DataLine>& lines, Delimiter delimiter, File& file, std::string& error,
              const Progress& progress) {
  const std::size_t width = file.curves.size();
  bool decimalComma = false;
  if (delimiter == Delimiter::Blanks) {
    bool commas = false, dots = false;
    for (const auto& l : lines) {
      commas = commas || l.text.find(',') != std::string_view::npos;
      dots = dots || l.text.find('.') != std::string_view::npos;
    }
    if (commas && !dots) {
      decimalComma = true;
    } else if (commas && !lines.empty() && !file.wrapped) {
      std::vector<std::string_view> byBlanks, byCommas;
      Split(lines.front().text, Delimiter::Blanks, byBlanks);
      Split(lines.front().text, Delimiter::Comma, byCommas);
      if (byCommas.size() == width && byBlanks.size() != width) {
        delimiter = Delimiter::Comma;
        file.warnings.push_back("the data are delimited by commas");
      }
    }
  }
  Tally rulers, titles, shortLines;
  std::map<std::string, Tally> nullTokens;
  std::vector<std::vector<double>> rows;  // one per data line: its values
  std::vector<int> numbers;
  std::vector<std::string_view> tokens;
  bool usedNull = false;
  for (const auto& line : lines) {
    if (progress && (rows.size() & 4095) == 0) progress(rows.size(), lines.size());
    if (RulerText(line.text)) {
      rulers.Add(line.number);
      continue;
    }
    Split(line.text, delimiter, tokens);
    std::vector<double> row;
    row.reserve(tokens.size());
    std::string_view bad;  // the first word that is neither a number nor a NULL token
    bool anyNumber = false;
    double value;
    for (const auto& t : tokens) {
      if (ParseNumber(t, value) || (decimalComma && ParseCommaNumber(t, value))) {
        row.push_back(value);
        anyNumber = true;
      } else {
        row.push_back(std::nan(""));  // marked; becomes NULL below (or is refused in the index)
        if (bad.empty() && !NullToken(t)) bad = t;
      }
    }
    // A title line: no number, and a curve's mnemonic among its words.
    if (!anyNumber) {
      bool title = false;
      for (const auto& t : tokens)
        for (const auto& c : file.curves) title = title || Upper(std::string(t)) == Upper(c.mnemonic);
      if (title) {
        titles.Add(line.number);
        continue;
      }
    }
    if (!bad.empty()) {
      error = At(line.number) + "not a number: " + std::string(bad);
      return false;
    }
    for (std::size_t i = 0; i < tokens.size(); ++i)
      if (std::isnan(row[i])) {
        nullTokens[tokens[i].empty() ? std::string("an empty field") : "\"" + std::string(tokens[i]) + "\""].Add(
            line.number);
        usedNull = true;
      }
    rows.push_back(std::move(row));
    numbers.push_back(line.number);
  }
  if (rulers.count) file.warnings.push_back("ruler " + rulers.Lines() + " in the data skipped");
  if (titles.count) file.warnings.push_back("title " + titles.Lines() + " in the data skipped");

  // Data that say WRAP. NO but whose depths stand alone on a line, each step
  // made of whole lines, are wrapped.
  bool wrapped = file.wrapped;
  if (!wrapped && width > 1) {
    bool alone = false, whole = true, wide = false;
    std::size_t filled = 0;
    for (const auto& row : rows) {
      if (filled == 0 && row.size() != 1) whole = false;
      if (filled == 0 && row.size() == 1) alone = true;
      if (filled > 0 && row.size() > 1) wide = true;
      filled += row.size();
      if (filled == width) filled = 0;
      if (filled > width) whole = false;
    }
    if (alone && whole && wide && filled == 0) {
      wrapped = true;
      file.warnings.push_back("WRAP. NO, but each depth stands alone on its line with its values on the lines after "
                              "it; read as wrapped");
    }
  }

  // Steps: one per line (unwrapped) or lines gathered up to the width (wrapped).
  std::vector<double> step;
  std::vector<std::vector<double>> steps;
  std::vector<int> stepLines;  // where each step begins
  int stepLine = 0;
  for (std::size_t r = 0; r < rows.size(); ++r) {
    const auto& row = rows[r];
    if (!wrapped) {
      if (row.size() > width) {
        error = At(numbers[r]) + std::to_string(row.size()) + " values for " + std::to_string(width) +
                " curves; a value would have no curve";
        return false;
      }
      if (row.size() < width) shortLines.Add(numbers[r]);
      steps.push_back(row);
      stepLines.push_back(numbers[r]);
      continue;
    }
    if (step.empty()) stepLine = numbers[r];
    step.insert(step.end(), row.begin(), row.end());
    if (step.size() > width) {
      error = At(numbers[r]) + "the depth step that begins on line " + std::to_string(stepLine) + " holds " +
              std::to_string(step.size()) + " values for " + std::to_string(width) + " curves";
      return false;
    }
    if (step.size() == width) {
      steps.push_back(std::move(step));
      stepLines.push_back(stepLine);
      step.clear();
    }
  }
  if (!step.empty()) {
    shortLines.Add(stepLine);
    steps.push_back(std::move(step));
    stepLines.push_back(stepLine);
  }
  if (shortLines.count) {
    usedNull = true;
    file.warnings.push_back((wrapped ? "the depth step beginning on " : "") + shortLines.Lines() +
                            (shortLines.count == 1 ? " holds" : " hold") + " fewer values than the " +
                            std::to_string(width) + " curves; the missing last curves read as NULL");
  }
  if (usedNull && !file.hasNull) {
    file.hasNull = true;
    file.warnings.push_back("the file gives no NULL; missing values read as " + FormatNumber(file.nullValue));
  }
  for (const auto& [token, tally] : nullTokens)
    file.warnings.push_back(token + " on " + tally.Lines() + " read as NULL (" + FormatNumber(file.nullValue) + ")");
  if (decimalComma && !steps.empty()) file.warnings.push_back("commas in the data read as decimal points");

  for (std::size_t c = 0; c < width; ++c) file.curves[c].values.reserve(steps.size());
  for (std::size_t s = 0; s < steps.size(); ++s) {
    const auto& values = steps[s];
    if (std::isnan(values[0])) {
      error = At(stepLines[s]) + "the index (" + file.curves[0].mnemonic + ") has no value; a depth step needs one";
      return false;
    }
    for (std::size_t c = 0; c < width; ++c)
      file.curves[c].values.push_back(c < values.size() && !std::isnan(values[c]) ? values[c] : file.nullValue);
  }
  return true;
}

bool ReadText(std::string_view raw, File& file, std::string& error, const Progress& progress) {
  file = File();
  const std::string content = Decode(raw, file.warnings);
  Section section = Section::None;
  bool sawVersion = false, sawData = false, version3 = false;
  Delimiter delimiter = Delimiter::Blanks;
  std::vector<DataLine> data;
  std::set<std::string> names;            // curve mnemonics so far, upper case
  std::map<std::string, int> nextSuffix;  // per duplicated mnemonic, the next "_n" to try
  Tally skippedHeaders;
  std::string_view view;
  std::size_t pos = 0;
  int number = 0;
  while (NextLine(content, pos, view)) {
    ++number;
    while (!view.empty() && view.back() == '\x1a') view.remove_suffix(1);
    const auto first = view.find_first_not_of(" \t");
    if (first == std::string_view::npos || view[first] == '#') continue;
    if (view[first] == '~') {
      Section next;
      if (!SectionOf(Trim(view), number, next, error)) return false;
      if (sawData && (next == Section::Data || next == Section::Curve)) {
        error = At(number) + "a second log data set (" + Trim(view) + ") is not supported; only the first is read";
        return false;
      }
      if (next == Section::Skipped)
        file.warnings.push_back(At(number) + "section " + Trim(view) + " skipped (not a log section)");
      section = next;
      sawVersion = sawVersion || section == Section::Version;
      sawData = sawData || section == Section::Data;
      continue;
    }
    if (section == Section::Data) {
      data.push_back({number, view});
      continue;
    }
    if (section == Section::None || section == Section::Other || section == Section::Skipped) continue;
    const std::string text = Trim(view);
    const Item item = ParseItem(text, version3);
    if (SkippedHeader(item, section == Section::Curve)) {
      skippedHeaders.Add(number);
      continue;
    }
    const std::string key = Upper(item.mnemonic);
    switch (section) {
      case Section::Version:
        if (key == "WRAP") file.wrapped = Upper(item.value) == "YES";
        if (key == "VERS" && !item.value.empty() && item.value[0] == '3') version3 = true;
        if (key == "VERS" && !item.value.empty() && item.value[0] != '2')
          file.warnings.push_back("version " + item.value + " read as 2.0");
        if (key == "DLM") {
          const std::string d = Upper(item.value);
          delimiter = d == "COMMA" ? Delimiter::Comma : d == "TAB" ? Delimiter::Tab : Delimiter::Blanks;
          if (d != "COMMA" && d != "TAB" && d != "SPACE" && !d.empty()) {
            error = At(number) + "the delimiter " + item.value + " is not one of SPACE, TAB or COMMA";
            return false;
          }
        }
        break;
      case Section::Well:
        if (key == "NULL") {
          if (!ParseHeaderNumber(item.value, file.nullValue)) {
            error = At(number) + "NULL is not a number: " + item.value;
            return false;
          }
          file.hasNull = true;
        }
        file.well.push_back(item);
        break;
      case Section::Parameter:
        file.parameters.push_back(item);
        break;
      case Section::Curve: {
        if (text.find('.') == std::string::npos) {
          file.warnings.push_back(At(number) + "not a curve line (no '.' after a mnemonic); skipped");
          break;
        }
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
      default:
        break;
    }
  }
  if (skippedHeaders.count) file.warnings.push_back("ruler or title " + skippedHeaders.Lines() + " skipped");
  if (!sawVersion && !sawData) {
    error = "not a LAS file (no ~V or ~A section)";
    return false;
  }
  if (file.curves.empty()) {
    error = "no curves in the ~C section";
    return false;
  }
  if (!ReadData(data, delimiter, file, error, progress)) return false;
  if (progress) progress(data.size(), data.size());
  return true;
}

}  // namespace

bool Read(std::istream& in, File& file, std::string& error, const Progress& progress) {
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
  return ReadText(content, file, error, progress);
}

bool ReadFile(const std::string& path, File& file, std::string& error, const Progress& progress) {
  std::error_code ec;
  if (std::filesystem::is_directory(path, ec)) {
    error = "a directory, not a LAS file";
    return false;
  }
  std::ifstream in(path, std::ios::binary);
  if (!in) {
    error = std::string("cannot read the file (") + std::strerror(errno) + ")";
    return false;
  }
  return Read(in, file, error, progress);
}

std::string MnemonicProblem(const std::string& mnemonic) {
  if (mnemonic.empty()) return "is empty";
  if (RulerText(mnemonic)) return "is dashes, '=' or '_' only (a ruler line)";
  return TextProblem(mnemonic, true, false, false);
}

std::string ItemProblem(const Item& item) {
  std::string error;
  return CheckItem("item", item.mnemonic, item.unit, item.value, item.description, false, error) ? "" : error;
}

bool Write(std::ostream& out, const File& file, std::string& error, const Progress& progress) {
  if (file.curves.empty()) {
    error = "no curves to write";
    return false;
  }
  const auto& index = file.curves.front().values;
  std::set<std::string> names;
  for (std::size_t c = 0; c < file.curves.size(); ++c) {
    const auto& curve = file.curves[c];
    if (curve.mnemonic.empty()) {
      error = "a curve has no mnemonic";
      return false;
    }
    if (!CheckItem("curve", curve.mnemonic, curve.unit, "", curve.description, true, error)) return false;
    if (!names.insert(Upper(curve.mnemonic)).second) {
      error = "duplicate curve mnemonic " + curve.mnemonic;
      return false;
    }
    if (curve.values.size() != index.size()) {
      error = "curve " + curve.mnemonic + " has " + std::to_string(curve.values.size()) + " samples, the index " +
              std::to_string(index.size());
      return false;
    }
    // The reader takes "nan" and "inf" in the data for NULL, and needs a number in the index.
    for (std::size_t r = 0; r < curve.values.size(); ++r) {
      const double v = curve.values[r];
      if (std::isfinite(v) || (c > 0 && SameBits(v, file.nullValue))) continue;
      error = "curve " + curve.mnemonic + ": sample " + std::to_string(r + 1) + " is " + FormatNumber(v) +
              (c == 0 ? ", which an index cannot hold" : ", which a LAS file reads as NULL");
      return false;
    }
  }
  for (const auto& item : file.well)
    if (!CheckItem("well item", item.mnemonic, item.unit, item.value, item.description, false, error)) return false;
  for (const auto& item : file.parameters)
    if (!CheckItem("parameter", item.mnemonic, item.unit, item.value, item.description, false, error)) return false;
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
    if (progress && (r & 4095) == 0) progress(r, index.size());
    for (std::size_t c = 0; c < file.curves.size(); ++c)
      out << (c ? " " : "") << FormatNumber(file.curves[c].values[r]);
    out << "\n";
  }
  if (!out) {
    error = "write failed";
    return false;
  }
  if (progress) progress(index.size(), index.size());
  return true;
}

}  // namespace petrodb::las
