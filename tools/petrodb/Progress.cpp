#include "Progress.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace petrodb::cli {

namespace {

int forced = -1;

constexpr auto kDelay = std::chrono::milliseconds(1000);   // shown once the work has taken this long
constexpr auto kPeriod = std::chrono::milliseconds(200);   // redrawn at most this often

bool FromEnvironment() {
  if (!isatty(STDERR_FILENO)) return false;
  const char* ci = std::getenv("CI");
  if (ci && *ci) return false;
  const char* term = std::getenv("TERM");
  return !(term && std::strcmp(term, "dumb") == 0);
}

std::string Count(double value) {
  char text[32];
  if (value >= 1e7)
    std::snprintf(text, sizeof text, "%.1fM", value / 1e6);
  else
    std::snprintf(text, sizeof text, "%.0f", value);
  return text;
}

}  // namespace

bool ProgressBar::Enabled() {
  return forced >= 0 ? forced != 0 : FromEnvironment();
}

void ProgressBar::Force(int enabled) { forced = enabled; }

std::string ProgressBar::Line(const std::string& label, std::uint64_t done, std::uint64_t total,
                              const std::string& unit, double seconds) {
  std::string line = label;
  const double rate = seconds > 0 ? static_cast<double>(done) / seconds : 0;
  if (total > 0) {
    const std::uint64_t shown = done > total ? total : done;
    const int percent = static_cast<int>(100.0 * static_cast<double>(shown) / static_cast<double>(total));
    char text[16];
    std::snprintf(text, sizeof text, " %3d%% ", percent);
    constexpr int kWidth = 20;
    const int filled = percent * kWidth / 100;
    line += text;
    line += '[' + std::string(filled, '#') + std::string(kWidth - filled, '.') + "] ";
    line += Count(static_cast<double>(done)) + "/" + Count(static_cast<double>(total));
  } else {
    line += " " + Count(static_cast<double>(done));
  }
  line += " " + unit + "  " + Count(rate) + " " + unit + "/s";
  return line;
}

ProgressBar::ProgressBar(std::string label, std::uint64_t total, std::string unit)
    : label_(std::move(label)),
      total_(total),
      unit_(std::move(unit)),
      start_(std::chrono::steady_clock::now()),
      lastDraw_(start_),
      enabled_(Enabled()) {}

ProgressBar::~ProgressBar() { Finish(); }

void ProgressBar::Set(std::uint64_t done) {
  done_ = done;
  if (!enabled_ || finished_) return;
  const auto now = std::chrono::steady_clock::now();
  if (now - start_ < kDelay || (shown_ && now - lastDraw_ < kPeriod)) return;
  lastDraw_ = now;
  Draw(false);
}

void ProgressBar::Finish() {
  if (finished_) return;
  finished_ = true;
  if (shown_) Draw(true);
}

void ProgressBar::Draw(bool final) {
  shown_ = true;
  const double seconds =
      std::chrono::duration<double>(std::chrono::steady_clock::now() - start_).count();
  const std::string line = Line(label_, done_, total_, unit_, seconds);
  // Carriage return, the line, then clear to the end of the line.
  std::fprintf(stderr, "\r%s\x1b[K%s", line.c_str(), final ? "\n" : "");
  std::fflush(stderr);
}

}  // namespace petrodb::cli
