#include "dbaccess/SqlText.h"

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace petrodb::sql {
bool HoldsQuote(std::string_view value) {
  return value.find_first_of(std::string_view("'\0", 2)) != std::string_view::npos;
}

namespace {

bool HoldsNul(std::string_view value) { return value.find('\0') != std::string_view::npos; }

void Pad(std::string& out, std::string_view body, int width, bool left, bool zero) {
  const int fill = width - static_cast<int>(body.size());
  if (fill <= 0) {
    out += body;
  } else if (left) {
    out += body;
    out.append(fill, ' ');
  } else if (zero && !body.empty() && (body[0] == '-' || body[0] == '+')) {
    out += body[0];
    out.append(fill, '0');
    out += body.substr(1);
  } else {
    out.append(fill, zero ? '0' : ' ');
    out += body;
  }
}

std::string FixedText(double value, int precision) {
  if (std::isnan(value)) return std::signbit(value) ? "-nan" : "nan";
  if (std::isinf(value)) return value < 0 ? "-inf" : "inf";
  char buffer[400];
  auto result = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed, precision);
  return std::string(buffer, result.ptr);
}

}  // namespace

namespace detail {

std::string FormatArgs(std::string_view pattern, std::span<const Arg> args) {
  std::string out;
  out.reserve(pattern.size() + 32);
  std::size_t next = 0;
  bool insideQuotes = false;  // within a '...' literal of the pattern itself
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    const char c = pattern[i];
    if (c != '%') {
      if (c == '\'') insideQuotes = !insideQuotes;
      out += c;
      continue;
    }
    if (i + 1 < pattern.size() && pattern[i + 1] == '%') {
      out += '%';
      ++i;
      continue;
    }
    // %[flags][width][.precision][length]conversion
    std::size_t j = i + 1;
    bool left = false, zero = false, plus = false, space = false;
    for (; j < pattern.size(); ++j) {
      const char f = pattern[j];
      if (f == '-') left = true;
      else if (f == '0') zero = true;
      else if (f == '+') plus = true;
      else if (f == ' ') space = true;
      else if (f != '#') break;
    }
    int width = 0;
    while (j < pattern.size() && pattern[j] >= '0' && pattern[j] <= '9') width = width * 10 + (pattern[j++] - '0');
    int precision = -1;
    if (j < pattern.size() && pattern[j] == '.') {
      precision = 0;
      ++j;
      while (j < pattern.size() && pattern[j] >= '0' && pattern[j] <= '9') precision = precision * 10 + (pattern[j++] - '0');
    }
    while (j < pattern.size() && (pattern[j] == 'l' || pattern[j] == 'h' || pattern[j] == 'L')) ++j;
    if (j >= pattern.size()) {
      out += pattern.substr(i);
      break;
    }
    const char conversion = pattern[j];
    if (std::string_view("sdiufFgc").find(conversion) == std::string_view::npos) {
      out += pattern.substr(i, j - i + 1);  // not a conversion: kept as written
      i = j;
      continue;
    }
    if (next >= args.size()) return {};  // fewer values than the pattern asks for
    const Arg& arg = args[next++];
    std::string body;
    switch (conversion) {
      case 's': {
        if (arg.kind == Arg::kInt) {
          body = std::to_string(arg.integer);
        } else if (arg.kind == Arg::kReal) {
          body = FixedText(arg.real, 6);
        } else {
          if (arg.poisoned) return {};
          if (arg.kind == Arg::kText && insideQuotes && HoldsQuote(arg.text)) return {};
          if (HoldsNul(arg.text)) return {};
          body.assign(arg.text);
        }
        if (precision >= 0 && static_cast<std::size_t>(precision) < body.size()) body.resize(precision);
        Pad(out, body, width, left, false);
        break;
      }
      case 'd':
      case 'i':
      case 'u': {
        long long v = arg.kind == Arg::kReal ? static_cast<long long>(arg.real)
                      : arg.kind == Arg::kInt ? arg.integer
                                              : std::atoll(std::string(arg.text).c_str());
        body = std::to_string(v);
        if (v >= 0 && plus) body.insert(0, "+");
        else if (v >= 0 && space) body.insert(0, " ");
        Pad(out, body, width, left, zero && precision < 0);
        break;
      }
      case 'f':
      case 'F': {
        double v = arg.kind == Arg::kInt ? static_cast<double>(arg.integer)
                   : arg.kind == Arg::kReal ? arg.real
                                            : CAtof(arg.text);
        body = FixedText(v, precision < 0 ? 6 : precision);
        if (!std::signbit(v) && plus) body.insert(0, "+");
        else if (!std::signbit(v) && space) body.insert(0, " ");
        Pad(out, body, width, left, zero);
        break;
      }
      case 'g': {
        double v = arg.kind == Arg::kInt ? static_cast<double>(arg.integer) : arg.real;
        char buffer[64];
        auto r = std::to_chars(buffer, buffer + sizeof buffer, v, std::chars_format::general,
                               precision < 0 ? 6 : (precision == 0 ? 1 : precision));
        Pad(out, std::string_view(buffer, r.ptr - buffer), width, left, zero);
        break;
      }
      case 'c': {
        body.assign(1, static_cast<char>(arg.kind == Arg::kInt ? arg.integer : 0));
        Pad(out, body, width, left, false);
        break;
      }
    }
    i = j;
  }
  return out;
}

}  // namespace detail

Fragment JoinQuotedValues(std::span<const std::string> values, std::string_view separator) {
  Fragment f;
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (HoldsQuote(values[i])) f.poisoned = true;
    if (i) f.text += separator;
    f.text += values[i];
  }
  return f;
}

Fragment QuoteEach(std::span<const std::string> values, std::string_view separator) {
  Fragment f;
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (HoldsQuote(values[i])) f.poisoned = true;
    if (i) f.text += separator;
    f.text += '\'';
    f.text += values[i];
    f.text += '\'';
  }
  return f;
}

Fragment InList(std::span<const std::string> values) {
  Fragment inner = JoinQuotedValues(values);
  inner.text = "in ('" + inner.text + "')";
  return inner;
}

std::vector<std::span<const std::string>> Batches(std::span<const std::string> values, std::size_t size) {
  std::vector<std::span<const std::string>> out;
  if (size == 0) size = values.size() ? values.size() : 1;
  for (std::size_t start = 0; start < values.size(); start += size)
    out.push_back(values.subspan(start, std::min(size, values.size() - start)));
  return out;
}

std::string AsciiLower(std::string text) {
  for (char& c : text)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  return text;
}

bool EqualsIgnoreCase(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  if (a == b) return true;  // the common case: names spelled alike
  for (std::size_t i = 0; i < a.size(); ++i) {
    char x = a[i], y = b[i];
    if (x >= 'A' && x <= 'Z') x = static_cast<char>(x - 'A' + 'a');
    if (y >= 'A' && y <= 'Z') y = static_cast<char>(y - 'A' + 'a');
    if (x != y) return false;
  }
  return true;
}

std::string ReplaceFirst(std::string text, std::string_view from, std::string_view to) {
  const auto at = text.find(from);
  if (at != std::string::npos) text.replace(at, from.size(), to);
  return text;
}

std::string ShortestText(double value) {
  char buffer[64];
  auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
  return std::string(buffer, result.ptr);
}

namespace {
std::string_view Trim(std::string_view t) {
  while (!t.empty() && (t.front() == ' ' || t.front() == '\t' || t.front() == '\r' || t.front() == '\n')) t.remove_prefix(1);
  while (!t.empty() && (t.back() == ' ' || t.back() == '\t' || t.back() == '\r' || t.back() == '\n')) t.remove_suffix(1);
  return t;
}
// Parses the longest leading number; returns the characters used (0: none).
std::size_t LeadingNumber(std::string_view t, double& out) {
  std::size_t sign = (!t.empty() && t[0] == '+') ? 1 : 0;
  if (sign && t.size() > 1 && t[1] == '-') return 0;
  auto r = std::from_chars(t.data() + sign, t.data() + t.size(), out);
  if (r.ec == std::errc::result_out_of_range) {
    out = (t.size() > sign && t[sign] == '-') ? -HUGE_VAL : HUGE_VAL;
    return static_cast<std::size_t>(r.ptr - t.data());
  }
  if (r.ec != std::errc()) return 0;
  return static_cast<std::size_t>(r.ptr - t.data());
}
}  // namespace

bool ParseWholeNumber(std::string_view text, double& out) {
  std::string_view t = Trim(text);
  if (t.empty()) return false;
  double v = 0;
  if (LeadingNumber(t, v) != t.size()) return false;
  out = v;
  return true;
}

double CAtof(std::string_view text) {
  std::string_view t = text;
  while (!t.empty() && (t.front() == ' ' || t.front() == '\t' || t.front() == '\n' || t.front() == '\r' ||
                        t.front() == '\f' || t.front() == '\v'))
    t.remove_prefix(1);
  double v = 0;
  return LeadingNumber(t, v) ? v : 0.0;
}

int CAtoi(std::string_view text) {
  std::string_view t = text;
  while (!t.empty() && (t.front() == ' ' || t.front() == '\t' || t.front() == '\n' || t.front() == '\r' ||
                        t.front() == '\f' || t.front() == '\v'))
    t.remove_prefix(1);
  bool negative = false;
  if (!t.empty() && (t.front() == '+' || t.front() == '-')) {
    negative = t.front() == '-';
    t.remove_prefix(1);
  }
  long long v = 0;
  for (char c : t) {
    if (c < '0' || c > '9') break;
    v = v * 10 + (c - '0');
    if (v > static_cast<long long>(std::numeric_limits<int>::max()) + 1) break;
  }
  v = negative ? -v : v;
  if (v > std::numeric_limits<int>::max()) return std::numeric_limits<int>::max();
  if (v < std::numeric_limits<int>::min()) return std::numeric_limits<int>::min();
  return static_cast<int>(v);
}

}  // namespace petrodb::sql
