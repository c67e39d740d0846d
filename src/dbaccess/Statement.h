#pragma once
// Statement patterns: each exact text of a data class stands once, as a named
// constant whose number of conversions is counted when it is compiled.
//
//   constexpr sql::Pattern<"select * from w_well_data where WellID = '%s'"> kLoadWell;
//   db.GetDataFromDB(kLoadWell(wellID).c_str());
//
// Applying a pattern to the wrong number of values does not compile. The result
// is a Statement: the text to send, or a refused one when a value that belongs
// between quotes holds a quote or a NUL (see SqlText.h). A Statement passed as a
// value to another pattern carries its refusal into the composed text.
#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

#include "dbaccess/SqlText.h"

namespace petrodb::sql {

class Statement {
 public:
  Statement() = default;
  // A fixed text, or one the caller built: sent as it is.
  Statement(const char* text) : text_(text ? text : "") {}  // NOLINT: implicit on purpose
  Statement(std::string text) : text_(std::move(text)) {}  // NOLINT
  static Statement Refused() {
    Statement s;
    s.refused_ = true;
    return s;
  }

  // True when a value was refused: the text is empty and the session answers it
  // as a statement that could not run.
  bool refused() const { return refused_; }
  const std::string& text() const { return text_; }
  const char* c_str() const { return text_.c_str(); }
  bool operator==(const Statement&) const = default;

 private:
  std::string text_;
  bool refused_ = false;
};

namespace detail {
inline Arg MakeArg(const Statement& v) { return {Arg::kFragment, v.text(), v.refused()}; }

// Counts the conversions FormatArgs fills: "%s", "%d", "%i", "%u", "%f", "%F",
// "%g", "%c" with optional flags, width, precision and length; "%%" is a
// percent sign.
consteval int CountConversions(std::string_view p) {
  int count = 0;
  for (std::size_t i = 0; i < p.size(); ++i) {
    if (p[i] != '%') continue;
    if (i + 1 < p.size() && p[i + 1] == '%') {
      ++i;
      continue;
    }
    std::size_t j = i + 1;
    while (j < p.size() && std::string_view("-0+ #").find(p[j]) != std::string_view::npos) ++j;
    while (j < p.size() && p[j] >= '0' && p[j] <= '9') ++j;
    if (j < p.size() && p[j] == '.') {
      ++j;
      while (j < p.size() && p[j] >= '0' && p[j] <= '9') ++j;
    }
    while (j < p.size() && (p[j] == 'l' || p[j] == 'h' || p[j] == 'L')) ++j;
    if (j >= p.size()) break;
    if (std::string_view("sdiufFgc").find(p[j]) != std::string_view::npos) ++count;
    i = j;
  }
  return count;
}
}  // namespace detail

// The text of a pattern, held in the type.
template <std::size_t N>
struct PatternText {
  char chars[N]{};
  consteval PatternText(const char (&text)[N]) { std::copy_n(text, N, chars); }  // NOLINT
  constexpr std::string_view view() const { return {chars, N - 1}; }
};

template <PatternText Text>
struct Pattern {
  static constexpr std::string_view text = Text.view();
  static constexpr int conversions = detail::CountConversions(text);

  template <class... Args>
    requires(sizeof...(Args) == conversions)
  Statement operator()(const Args&... args) const {
    if constexpr (conversions == 0) {
      return Statement(std::string(text));
    } else {
      std::string out = Format(text, args...);
      if (out.empty()) return Statement::Refused();
      return Statement(std::move(out));
    }
  }
};

}  // namespace petrodb::sql
