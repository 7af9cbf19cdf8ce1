#ifndef POSTWRIGHT_APPS_BASE_PROGRESSLINE_H_
#define POSTWRIGHT_APPS_BASE_PROGRESSLINE_H_

#include <chrono>
#include <cstdint>
#include <string>

namespace postwright::postal {

// How far something is, on standard error: one line that is written again where that is a terminal,
// and a line every ten seconds where it is not.
class ProgressLine {
 public:
  explicit ProgressLine(bool quiet);

  // Says whether it is time for another line, which Draw then writes.
  bool IsDue();
  void Draw(const std::string& text);

  // A message on a line of its own, also where it is quiet.
  void Say(const std::string& text);

  // Since it was made.
  std::chrono::duration<double> Elapsed() const { return Clock::now() - begun_; }

 private:
  using Clock = std::chrono::steady_clock;

  bool quiet_;
  bool terminal_;
  bool drawn_ = false;
  Clock::time_point begun_ = Clock::now();
  Clock::time_point shown_ = begun_;
};

// "1,234,567"
std::string Thousands(int64_t number);

}  // namespace postwright::postal

#endif  // POSTWRIGHT_APPS_BASE_PROGRESSLINE_H_
