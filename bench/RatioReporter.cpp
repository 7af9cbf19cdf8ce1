#include "bench/RatioReporter.h"

#include <cstdio>
#include <utility>

#include "bench/FigureBefore.h"

namespace postwright {

void RatioReporter::AddRatio(std::string text, std::string slow, std::string fast) {
  ratios_.push_back({std::move(text), std::move(slow), std::move(fast)});
}

void RatioReporter::ReportRuns(const std::vector<Run>& runs) {
  ConsoleReporter::ReportRuns(runs);
  for (const Run& run : runs) {
    if (run.run_type == Run::RT_Iteration) {
      seconds_[run.run_name.function_name] =
          run.cpu_accumulated_time / static_cast<double>(run.iterations);
    }
  }
}

void RatioReporter::Finalize() {
  std::printf("\n");
  for (const Ratio& ratio : ratios_) {
    if (seconds_.count(ratio.slow) != 0 && seconds_.count(ratio.fast) != 0) {
      std::printf("%-60s %8.1f  %s\n", ratio.text.c_str(),
                  seconds_[ratio.slow] / seconds_[ratio.fast], FigureBefore(ratio.text).c_str());
    }
  }
}

}  // namespace postwright
