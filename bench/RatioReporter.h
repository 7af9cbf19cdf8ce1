#ifndef POSTWRIGHT_BENCH_RATIOREPORTER_H_
#define POSTWRIGHT_BENCH_RATIOREPORTER_H_

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace postwright {

// Prints the usual table and then, for each pair asked for, how many times as long one took as the
// other, in processor time of the same run, and the last version's figure. Absolute times differ
// between machines and from minute to minute; a claim can rest only on a ratio.
class RatioReporter : public benchmark::ConsoleReporter {
 public:
  // After the run, prints `text` with time(`slow`) / time(`fast`), named as in the table.
  void AddRatio(std::string text, std::string slow, std::string fast);

  void ReportRuns(const std::vector<Run>& runs) override;
  void Finalize() override;

 private:
  struct Ratio {
    std::string text, slow, fast;
  };
  std::vector<Ratio> ratios_;
  std::map<std::string, double> seconds_;  // processor time of an iteration, by the run's name
};

}  // namespace postwright

#endif  // POSTWRIGHT_BENCH_RATIOREPORTER_H_
