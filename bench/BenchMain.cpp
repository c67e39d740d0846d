// Runs the benchmarks and prints each petrodb path as a ratio against the raw
// engine API doing the same work in the same run. Pairs are named
// "<Case>/petrodb" and "<Case>/raw".
#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <string>

namespace {

// A run's name without the "/iterations:N", "/min_time:T" and "/repeats:N" that fixed counts add.
std::string CaseName(std::string name) {
  for (const char* suffix : {"/iterations:", "/min_time:", "/repeats:"}) {
    const auto at = name.find(suffix);
    if (at == std::string::npos) continue;
    const auto end = name.find('/', at + 1);
    name.erase(at, end == std::string::npos ? std::string::npos : end - at);
  }
  return name;
}

class RatioReporter : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    ConsoleReporter::ReportRuns(runs);
    // With --benchmark_repetitions the median stands for the case; otherwise the one run.
    for (const auto& run : runs) {
      if (run.error_occurred) continue;
      const std::string name = CaseName(run.run_name.str());
      units_[name] = benchmark::GetTimeUnitString(run.time_unit);
      if (run.run_type == Run::RT_Aggregate && run.aggregate_name == "median")
        medians_[name] = run.GetAdjustedRealTime();
      else if (run.run_type == Run::RT_Iteration)
        times_[name] = run.GetAdjustedRealTime();
    }
    for (const auto& [name, time] : medians_) times_[name] = time;
  }
  void PrintRatios() const {
    std::printf("\n%-44s %14s %14s %8s\n", "case", "petrodb", "raw", "ratio");
    for (const auto& [name, time] : times_) {
      const auto slash = name.find("/petrodb");
      if (slash == std::string::npos) continue;
      const std::string rawName = name.substr(0, slash) + "/raw" + name.substr(slash + 8);
      const auto raw = times_.find(rawName);
      if (raw == times_.end() || raw->second <= 0) continue;
      const std::string unit = units_.count(name) ? units_.at(name) : "";
      const std::string shown = name.substr(0, slash) + name.substr(slash + 8);
      std::printf("%-44s %11.1f %-2s %11.1f %-2s %8.2f\n", shown.c_str(), time, unit.c_str(),
                  raw->second, unit.c_str(), time / raw->second);
    }
  }

 private:
  std::map<std::string, double> times_, medians_;
  std::map<std::string, std::string> units_;
};

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  reporter.PrintRatios();
  benchmark::Shutdown();
  return 0;
}
