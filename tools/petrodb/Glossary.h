#pragma once
// The library's messages in English: one table of every text the library can
// show (and of its message caption and waiting text), used by the host to print
// each message with an English gloss after it.
#include <optional>
#include <string>
#include <vector>

namespace petrodb::cli {

struct Gloss {
  // The library's text; "%s" stands for a name or list the library inserts
  // (matched by any text, carried over into the English).
  const char* text;
  const char* english;
};

const std::vector<Gloss>& Glossary();

// The English of a message text, names filled in; nothing when the table has
// no entry for it.
std::optional<std::string> English(const std::string& text);

// Whether `text` is `pattern` with each "%s" standing for some text; the texts
// they stand for go to `parts` (when given).
bool MatchPattern(const std::string& pattern, const std::string& text, std::vector<std::string>* parts = nullptr);

// How the host shows the library's messages: with the English gloss (the
// default) or the original alone ("--lang zh").
void SetGlossed(bool glossed);

// One message as the host prints it (without the trailing newline):
// "petrodb: <caption>: <text> (<English caption>: <English text>)".
std::string MessageLine(const std::string& text, const std::string& caption);

// Installs the host's message handler (each message once on stderr, as
// MessageLine) and its progress handler (the library's long work drives a
// progress bar).
void InstallLibraryHandlers();

}  // namespace petrodb::cli
