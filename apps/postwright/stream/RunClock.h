#ifndef POSTWRIGHT_APPS_POSTWRIGHT_STREAM_RUNCLOCK_H_
#define POSTWRIGHT_APPS_POSTWRIGHT_STREAM_RUNCLOCK_H_

#include <chrono>
#include <thread>

namespace postwright {

// The time that a run waits by, so that a test can have hours go by at once.
class RunClock {
 public:
  using Time = std::chrono::steady_clock::time_point;

  virtual ~RunClock() = default;
  virtual Time Now() const { return std::chrono::steady_clock::now(); }
  virtual void Sleep(std::chrono::milliseconds length) { std::this_thread::sleep_for(length); }
};

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_POSTWRIGHT_STREAM_RUNCLOCK_H_
