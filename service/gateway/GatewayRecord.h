#ifndef POSTWRIGHT_SERVICE_GATEWAY_GATEWAYRECORD_H_
#define POSTWRIGHT_SERVICE_GATEWAY_GATEWAYRECORD_H_

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "common/Histogram.h"
#include "service/gateway/Budget.h"
#include "service/http/RequestLog.h"
#include "service/upstream/Clock.h"
#include "service/upstream/Upstream.h"

namespace postwright::service {

// What a gateway has done and is doing, at one moment.
struct GatewayState {
  std::string upstream;

  uint64_t calls = 0;                             // that counted against the upstream's quota
  uint64_t cached = 0;                            // addresses answered from the cache
  uint64_t joined = 0;                            // addresses that were being asked for already
  uint64_t turnedDownHere = 0;                    // addresses that no upstream could answer
  uint64_t turnedAway = 0;                        // addresses without an answer
  std::array<uint64_t, kFaultKinds> errors = {};  // by FaultKind

  size_t waiting = 0;  // addresses in the queue
  size_t calling = 0;  // calls under way

  std::optional<Budget::Rate> budget;  // nullopt: no bound
  size_t budgetLeft = 0;
  std::optional<Clock::Date> resumesAt;  // where no call may be made now
  std::optional<UpstreamFault> pause;    // what the upstream said that keeps it from being asked
  std::optional<UpstreamFault> lastError;
  std::optional<Clock::Date> lastErrorAt;
};

// Counts what a gateway does, and tells its log what goes wrong. Borrows clock and log. Not for
// several threads at once.
class GatewayRecord {
 public:
  GatewayRecord(const std::string& upstream, std::optional<Budget::Rate> budget, const Clock& clock,
                RequestLog& log);

  void Cached() { ++state_.cached; }
  void Joined() { ++state_.joined; }
  void TurnedDownHere() { ++state_.turnedDownHere; }

  // So many addresses stay without an answer for this reason. Of the reasons, the gateway's own are
  // counted here; the upstream's are counted by the call.
  void TurnedAway(FaultKind kind, size_t addresses);

  void CallBegins() { ++state_.calling; }
  void CallEnds(Clock::Time begun);

  // What came of it: how many calls that counted, and the fault, after which the upstream is not
  // asked until `pausedUntil`. The log has a fault that is another than the last one, or a minute
  // later.
  void CallsCounted(size_t calls) { state_.calls += calls; }
  void Failed(const UpstreamFault& fault, std::optional<Clock::Time> pausedUntil);

  // The seconds that each call took. Any thread.
  const Histogram& CallSeconds() const { return callSeconds_; }

  // All of it, without what the queue and the pace know.
  const GatewayState& State() const { return state_; }

 private:
  const Clock& clock_;
  RequestLog& log_;
  GatewayState state_;
  Histogram callSeconds_{{0.05, 0.1, 0.25, 0.5, 1, 2.5, 5, 10, 20}};
  Clock::Time loggedAt_ = Clock::Time::min();
};

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_GATEWAY_GATEWAYRECORD_H_
