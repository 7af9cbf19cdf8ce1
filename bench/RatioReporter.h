#ifndef POSTWRIGHT_BENCH_RATIOREPORTER_H_
#define POSTWRIGHT_BENCH_RATIOREPORTER_H_

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace postwright {

// Prints the usual table and then, for each pair asked for, how many times as long the one took as
// the other, in processor time of the same run. Absolute times differ from machine to machine and
// from minute to minute; a ratio is what a claim can rest on.
class RatioReporter : public benchmark::ConsoleReporter {
 public:
  // After the run prints `text` with time(`slow`) / time(`fast`); names as the table shows them.
  void AddRatio(std::string text, std::string slow, std::string fast);

  void ReportRuns(const std::vector<Run>& runs) override;
  void Finalize() override;

 private:
  struct Ratio {
    std::string text, slow, fast;
  };
  std::vector<Ratio> ratios_;
  std::map<std::string, double> seconds_;  // a run's name, its processor time an iteration
};

}  // namespace postwright

#endif  // POSTWRIGHT_BENCH_RATIOREPORTER_H_
