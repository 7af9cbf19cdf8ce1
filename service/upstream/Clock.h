#ifndef POSTWRIGHT_SERVICE_UPSTREAM_CLOCK_H_
#define POSTWRIGHT_SERVICE_UPSTREAM_CLOCK_H_

#include <chrono>
#include <condition_variable>
#include <mutex>

namespace postwright::service {

// The time, so that a test can hold a month in a moment. What is kept in memory goes by Now, which
// no setting of the system's clock moves; what is kept in a file or shown goes by Today.
class Clock {
 public:
  using Time = std::chrono::steady_clock::time_point;
  using Date = std::chrono::system_clock::time_point;

  virtual ~Clock() = default;

  virtual Time Now() const { return std::chrono::steady_clock::now(); }
  virtual Date Today() const { return std::chrono::system_clock::now(); }

  // Returns when on the system's clock `time` is.
  Date DateOf(Time time) const {
    return Today() + std::chrono::duration_cast<Date::duration>(time - Now());
  }

  // Waits until `condition` is notified or `until` has come; may return earlier. `lock` is held.
  virtual void Wait(std::condition_variable& condition, std::unique_lock<std::mutex>& lock,
                    Time until) const {
    if (until == Time::max()) {
      condition.wait(lock);
    } else {
      condition.wait_until(lock, until);
    }
  }
};

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_UPSTREAM_CLOCK_H_
