#pragma once
// Building statement texts: printf-style templates with C semantics, values
// spliced without escaping, and the value lists of "in (...)" clauses.
//
// A text value that a statement places between single quotes must not hold a
// quote, and no value may hold a NUL: such a value empties the whole statement,
// and the session answers an empty statement as one that could not run. No quote
// inside a value can change what a statement does, and no key is cut short.
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace petrodb::sql {

// A piece of statement text built from values (a joined list). `poisoned` is set
// when a value that belongs between quotes held a quote.
struct Fragment {
  std::string text;
  bool poisoned = false;
};

// A caller's SQL passed on as it is ("inserted unchanged").
struct Raw {
  std::string_view text;
};

class Statement;  // Statement.h

namespace detail {
struct Arg {
  enum Kind { kText, kFragment, kRaw, kInt, kReal } kind;
  std::string_view text;
  bool poisoned = false;
  long long integer = 0;
  double real = 0;
};
inline Arg MakeArg(const char* v) { return {Arg::kText, v ? std::string_view(v) : std::string_view()}; }
inline Arg MakeArg(const std::string& v) { return {Arg::kText, v}; }
inline Arg MakeArg(std::string_view v) { return {Arg::kText, v}; }
inline Arg MakeArg(const Fragment& v) { return {Arg::kFragment, v.text, v.poisoned}; }
inline Arg MakeArg(Raw v) { return {Arg::kRaw, v.text}; }
Arg MakeArg(const Statement& v);  // Statement.h
template <class T>
  requires std::is_integral_v<T>
Arg MakeArg(T v) {
  Arg a{Arg::kInt, {}};
  a.integer = static_cast<long long>(v);
  return a;
}
template <class T>
  requires std::is_floating_point_v<T>
Arg MakeArg(T v) {
  Arg a{Arg::kReal, {}};
  a.real = static_cast<double>(v);
  return a;
}
std::string FormatArgs(std::string_view pattern, std::span<const Arg> args);
}  // namespace detail

// Formats a statement: "%s" (text, fragment or raw), "%d" (integer), "%f" and
// "%.Nf" (fixed, C locale), "%%"; flags, width and precision as in C. A text
// value inside a quoted part of the pattern that holds a quote gives "".
template <class... Args>
std::string Format(std::string_view pattern, const Args&... args) {
  const detail::Arg list[] = {detail::MakeArg(args)..., detail::Arg{detail::Arg::kRaw, {}}};
  return detail::FormatArgs(pattern, std::span<const detail::Arg>(list, sizeof...(Args)));
}

// "a', 'b', 'c" – the inside of "in ('...')" with the given separator ("', '").
Fragment JoinQuotedValues(std::span<const std::string> values, std::string_view separator = "', '");
// "'a','b','c'" – each value between quotes, joined by `separator` (",").
Fragment QuoteEach(std::span<const std::string> values, std::string_view separator = ",");
// "in ('a', 'b', 'c')"; an empty list gives "in ('')".
Fragment InList(std::span<const std::string> values);

// Consecutive slices of at most `size` values (the last may be shorter).
std::vector<std::span<const std::string>> Batches(std::span<const std::string> values, std::size_t size);

// Lowers A-Z only; every other byte (UTF-8 included) stays.
std::string AsciiLower(std::string text);
bool EqualsIgnoreCase(std::string_view a, std::string_view b);

// Replaces the first occurrence of `from` in `text` (no change when absent).
std::string ReplaceFirst(std::string text, std::string_view from, std::string_view to);

// True when the value holds a single quote or a NUL: no statement carries it
// between quotes, so no key or name stored through one can be it. (A quote would
// end the literal the value stands in; a NUL would cut the text short where it
// is handed on as a C string.)
bool HoldsQuote(std::string_view value);

// Locale-independent conversions shared by the session and the data classes.
// The shortest text that reads back as the same double.
std::string ShortestText(double value);
// The whole text (surrounding blanks allowed) as one number.
bool ParseWholeNumber(std::string_view text, double& out);
// C's atof and atoi: the longest leading number, 0 when there is none.
double CAtof(std::string_view text);
int CAtoi(std::string_view text);

}  // namespace petrodb::sql
