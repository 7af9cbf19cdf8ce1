#ifndef POSTWRIGHT_TESTS_SERVICE_UPSTREAM_MANUALCLOCK_H_
#define POSTWRIGHT_TESTS_SERVICE_UPSTREAM_MANUALCLOCK_H_

#include <atomic>

#include "service/upstream/Clock.h"

namespace postwright::service {

// A clock that stands still until it is moved. It begins on 2026-11-25 at 12:00 UTC.
class ManualClock final : public Clock {
 public:
  Time Now() const override { return Time(std::chrono::seconds(1'000'000)) + passed_.load(); }
  Date Today() const override { return Date(std::chrono::seconds(1'795'608'000)) + passed_.load(); }

  // Checks about every millisecond whether the time has come: moving it does not notify anyone.
  void Wait(std::condition_variable& condition, std::unique_lock<std::mutex>& lock,
            Time) const override {
    condition.wait_for(lock, std::chrono::milliseconds(1));
  }

  void Move(std::chrono::seconds by) { passed_ = passed_.load() + by; }

 private:
  std::atomic<std::chrono::seconds> passed_{};
};

}  // namespace postwright::service

#endif  // POSTWRIGHT_TESTS_SERVICE_UPSTREAM_MANUALCLOCK_H_
