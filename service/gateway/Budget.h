#ifndef POSTWRIGHT_SERVICE_GATEWAY_BUDGET_H_
#define POSTWRIGHT_SERVICE_GATEWAY_BUDGET_H_

#include <chrono>
#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <string_view>

#include "service/upstream/Clock.h"

namespace postwright::service {

// How many calls an upstream may get in any stretch of time.
//
//   Budget budget(Budget::Rate{60, std::chrono::hours(1)});
//   if (budget.WhenFree(now, 0) <= now) { budget.Take(now); … }
//
// A sliding window: every call is remembered until the stretch has passed after it. A bucket that
// refills would let twice the number through in the hour that begins with a full one, and an
// upstream that counts by the clock hour and one that counts the last hour both refuse that; a
// window keeps within either. For one thread at a time.
class Budget {
 public:
  static constexpr size_t kMostCalls = 100'000;  // each takes 8 bytes

  struct Rate {
    size_t calls = 60;  // 1 to kMostCalls
    std::chrono::seconds stretch = std::chrono::hours(1);

    bool operator==(const Rate&) const = default;
  };

  // Reads "60/h", "5/min", "10/s" or "1000/d"; nullopt for anything else.
  static std::optional<Rate> ParseRate(std::string_view text);

  // Returns a rate as ParseRate reads it.
  static std::string Format(const Rate& rate);

  explicit Budget(std::optional<Rate> rate) : rate_(rate) {}  // nullopt: no bound

  // Returns when a call may be made if `ahead` others are made first, as soon as they may: `now` if
  // at once.
  Clock::Time WhenFree(Clock::Time now, size_t ahead);

  // Returns how many calls may be made at once; kMostCalls where there is no bound.
  size_t Left(Clock::Time now);

  // Books a call made at `at`, which is no later than now: calls before a restart come in here,
  // too.
  void Take(Clock::Time at);

  // Takes the last booking back: the call was not made.
  void GiveBack();

  const std::optional<Rate>& GetRate() const { return rate_; }

 private:
  void Forget(Clock::Time now);

  const std::optional<Rate> rate_;
  std::deque<Clock::Time> calls_;  // within the stretch, the oldest first
};

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_GATEWAY_BUDGET_H_
