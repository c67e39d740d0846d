#pragma once
// A progress bar for long imports and exports, drawn on stderr only when it is a
// terminal (never on a pipe, nor when CI is set or TERM is "dumb"), and only once
// the operation has taken about a second: label, percent, count and rate.
#include <chrono>
#include <cstdint>
#include <string>

namespace petrodb::cli {

class ProgressBar {
 public:
  // `total` 0: unknown, the bar shows the count and the rate only. `unit` names
  // what is counted ("rows", "samples", "traces").
  ProgressBar(std::string label, std::uint64_t total, std::string unit);
  ~ProgressBar();  // finishes the bar
  ProgressBar(const ProgressBar&) = delete;
  ProgressBar& operator=(const ProgressBar&) = delete;

  // How much is done; cheap enough to call for every row.
  void Set(std::uint64_t done);
  // Draws the final state (if the bar was shown) and ends its line. Idempotent.
  void Finish();

  // Whether a bar made now is drawn (stderr a terminal, no CI, TERM not dumb).
  // Tests may force it off or on; `Enabled` then reads the forced value.
  static bool Enabled();
  static void Force(int enabled);  // -1: decide from the environment again

  // The line the bar shows for a state (no terminal control characters), e.g.
  // "import  42% 4200/10000 rows 3100 rows/s".
  static std::string Line(const std::string& label, std::uint64_t done, std::uint64_t total,
                          const std::string& unit, double seconds);

 private:
  void Draw(bool final);

  std::string label_;
  std::uint64_t total_;
  std::string unit_;
  std::uint64_t done_ = 0;
  std::chrono::steady_clock::time_point start_;
  std::chrono::steady_clock::time_point lastDraw_;
  bool shown_ = false;
  bool finished_ = false;
  bool enabled_;
};

}  // namespace petrodb::cli
