#include "ratios.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <map>

namespace {

class FastestRuns : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.error_occurred) failed_ = true;
      if (run.error_occurred || run.run_type != Run::RT_Iteration) continue;
      const double time = run.GetAdjustedCPUTime();
      const auto [fastest, isNew] = seconds_.emplace(run.run_name.function_name, time);
      if (!isNew) fastest->second = std::min(fastest->second, time);
    }
    ConsoleReporter::ReportRuns(runs);
  }

  void Tell(const Ratio& ratio) const {
    const auto slow = seconds_.find(ratio.slow);
    const auto fast = seconds_.find(ratio.fast);
    if (slow == seconds_.end() || fast == seconds_.end()) return;
    std::printf("%-56s %7.2f\n", ratio.title.c_str(), slow->second / fast->second);
  }

  bool Failed() const { return failed_; }

 private:
  std::map<std::string, double> seconds_;
  bool failed_ = false;
};

}  // namespace

int RunWithRatios(int argc, char** argv, const std::vector<Ratio>& ratios) {
  std::string repetitions = "--benchmark_repetitions=5";
  std::string mixed = "--benchmark_enable_random_interleaving=true";
  std::vector<char*> arguments{argv[0], repetitions.data(), mixed.data()};
  arguments.insert(arguments.end(), argv + 1, argv + argc);
  int count = static_cast<int>(arguments.size());
  benchmark::Initialize(&count, arguments.data());
  if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) return 2;
  FastestRuns reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  benchmark::Shutdown();
  std::printf("\nRatios of the fastest runs\n");
  for (const Ratio& ratio : ratios) reporter.Tell(ratio);
  return reporter.Failed() ? 1 : 0;
}
