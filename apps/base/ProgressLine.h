#ifndef POSTWRIGHT_APPS_BASE_PROGRESSLINE_H_
#define POSTWRIGHT_APPS_BASE_PROGRESSLINE_H_

#include <chrono>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace postwright::postal {

// How far something is. On standard error: one line that is written again where that is a terminal,
// and a line every ten seconds where it is not. For programs, on standard output: a JSON line five
// times a second, {"step":"fetching","percent":12,"files":3}.
class ProgressLine {
 public:
  enum class Form { Quiet, Text, Json };
  using Figures = std::vector<std::pair<const char*, int64_t>>;

  explicit ProgressLine(Form form);

  // Says whether it is time for another line, which Draw then writes: its text, or step and
  // figures.
  bool IsDue();
  void Draw(const std::string& text, const char* step, const Figures& figures = {});

  // A message on a line of its own, also where it is quiet.
  void Say(const std::string& text);

  // Since it was made.
  std::chrono::duration<double> Elapsed() const { return Clock::now() - begun_; }

 private:
  using Clock = std::chrono::steady_clock;

  Form form_;
  bool terminal_;
  bool drawn_ = false;
  Clock::time_point begun_ = Clock::now();
  Clock::time_point shown_;
};

// "1,234,567"
std::string Thousands(int64_t number);

}  // namespace postwright::postal

#endif  // POSTWRIGHT_APPS_BASE_PROGRESSLINE_H_
