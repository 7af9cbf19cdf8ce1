#ifndef POSTWRIGHT_SERVICE_GATEWAY_PACE_H_
#define POSTWRIGHT_SERVICE_GATEWAY_PACE_H_

#include <optional>

#include "service/gateway/Budget.h"
#include "service/upstream/Clock.h"
#include "service/upstream/Upstream.h"

namespace postwright::service {

// When an upstream may be asked: within a budget, and out of the pauses that it wants or needs.
//
//   Pace pace(Budget(rate));
//   if (pace.ReadyAt(now, 0) <= now) { pace.Begin(now); … pace.End(later, outcome); }
//
// For one thread at a time.
class Pace {
 public:
  explicit Pace(Budget budget) : budget_(std::move(budget)) {}

  // Returns when the call after `ahead` others can be made: `now` if at once.
  Clock::Time ReadyAt(Clock::Time now, size_t ahead);

  // Returns why it cannot be made earlier.
  FaultKind ReasonAt(Clock::Time now, size_t ahead);

  // Says whether the time at which a call can be made is promised: the budget's, or the upstream's
  // own. A pause that is made up for an upstream that fails promises nothing.
  bool IsPromised(Clock::Time now, FaultKind reason) const;

  // Books a call that begins, or was made before a restart.
  void Begin(Clock::Time at) { budget_.Take(at); }

  // Notes how a call ended that has begun: it may have been none, or two. Returns true where it has
  // brought a longer pause.
  bool End(Clock::Time now, const UpstreamOutcome& outcome);

  // Ends the pause: what had brought it is no more.
  void Resume();

  // Returns the fault that has brought the pause, and its end; nullopt where there is none now.
  std::optional<UpstreamFault> PauseAt(Clock::Time now) const;
  std::optional<Clock::Time> PausedUntil(Clock::Time now) const;

  const std::optional<Budget::Rate>& GetRate() const { return budget_.GetRate(); }
  size_t Left(Clock::Time now) { return budget_.Left(now); }

 private:
  Budget budget_;
  Clock::Time pausedUntil_ = Clock::Time::min();
  UpstreamFault pause_;
  unsigned failures_ = 0;  // in a row
};

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_GATEWAY_PACE_H_
