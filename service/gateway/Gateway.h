#ifndef POSTWRIGHT_SERVICE_GATEWAY_GATEWAY_H_
#define POSTWRIGHT_SERVICE_GATEWAY_GATEWAY_H_

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <unordered_map>
#include <vector>

#include "service/AnswerSource.h"
#include "service/gateway/AnswerCache.h"
#include "service/gateway/Budget.h"
#include "service/gateway/FairQueue.h"
#include "service/gateway/GatewayRecord.h"
#include "service/gateway/Pace.h"
#include "service/http/RequestLog.h"
#include "service/upstream/Clock.h"
#include "service/upstream/Upstream.h"
#include "service/upstream/Zips.h"

namespace postwright::service {

// Answers addresses by asking an upstream as little as possible: answers are kept, an address that
// is being asked for is not asked for again, and calls keep within a budget and out of the pauses
// that the upstream wants.
//
//   Gateway gateway(upstream, zips, Budget(rate), &cache, clock, {}, log);
//   VerifyService service(gateway, nullptr, {});
//
// Addresses that are not in the cache wait in a bounded, fair queue, for `deadline` at most and
// only where their turn can come within it; the others are told at once when to come again. A few
// threads make the calls. Finding an answer never waits, so that cached answers go on whatever the
// upstream does. Borrows everything it is given. Any thread may call any operation.
class Gateway final : public AnswerSource {
 public:
  struct Limits {
    std::chrono::milliseconds deadline = std::chrono::seconds(20);  // for one address
    size_t waiting = 256;                                           // addresses in the queue
    unsigned connections = 4;                                       // calls at once
  };

  // `cache` may be null. Calls that it knows of count against the budget.
  Gateway(Upstream& upstream, Zips zips, Budget budget, AnswerCache* cache, const Clock& clock,
          const Limits& limits, RequestLog& log);

  // Stops.
  ~Gateway() override;
  Gateway(const Gateway&) = delete;
  Gateway& operator=(const Gateway&) = delete;

  void Find(const RequestAddress& asked, const std::string& asker, Done done) override;

  // Breaks calls off; whoever still waits, or comes later, is told that the service ends.
  void Stop() override;

  // Makes the next call with the credentials that the file has now, and at once, whatever pause the
  // old ones had brought. Throws CredentialsError and goes on with the old ones where it cannot.
  void ReloadCredentials();

  GatewayState State();

  // The seconds that each call took.
  const Histogram& CallSeconds() const { return record_.CallSeconds(); }

 private:
  struct Waiter {
    Done done;
    Clock::Time deadline;
  };

  // An address that is being asked for, from its first asker to the moment when the cache has it.
  struct Flight {
    Flight(const std::string& itsKey, const std::string& itsAsker, const RequestAddress& asked)
        : key(itsKey), asker(itsAsker), normal(asked) {}

    const std::string key;
    const std::string asker;  // in whose lane it waits
    const RequestAddress normal;
    std::vector<Waiter> waiters;
    bool isCalled = false;  // out of the queue
    std::optional<AddressAnswer> answer;
  };
  using FlightPointer = std::shared_ptr<Flight>;

  // Answers to give once the lock is released.
  struct Delivery {
    Done done;
    AddressAnswer answer;
  };
  using Deliveries = std::vector<Delivery>;

  // Under the lock:
  Deliveries Enter(const std::string& key, const RequestAddress& normal, const std::string& asker,
                   Done done);
  std::optional<ServiceFault> MakeRoom(const std::string& asker, Clock::Time now,
                                       Deliveries& displaced);
  Deliveries Settle(const FlightPointer& flight, const UpstreamOutcome& outcome);
  Deliveries TakeLost(Clock::Time now, Clock::Time* next);
  ServiceFault Blocked(Clock::Time now, size_t ahead);
  ServiceFault TurnAway(FaultKind kind, std::optional<Clock::Time> resumesAt = {},
                        size_t addresses = 1);

  // Without it:
  std::optional<AddressAnswer> FindKept(const std::string& key, const std::string& fullKey);
  void Work();
  void Expire();
  void Call(const FlightPointer& flight);
  UpstreamOutcome AskUpstream(const RequestAddress& normal);
  static void Deliver(Deliveries deliveries) {
    for (Delivery& delivery : deliveries) {
      delivery.done(std::move(delivery.answer));
    }
  }

  Upstream& upstream_;
  const Zips zips_;
  AnswerCache* const cache_;
  const Clock& clock_;
  const Limits limits_;

  std::mutex mutex_;
  std::condition_variable workable_;   // a flight to call, another time for it, or the end
  std::condition_variable expirable_;  // a waiter, another time, or the end
  bool isStopping_ = false;
  Pace pace_;
  FairQueue<FlightPointer> queue_;
  std::unordered_map<std::string, FlightPointer> flights_;
  uint64_t landed_ = 0;  // flights that have ended
  GatewayRecord record_;

  std::vector<std::thread> threads_;
};

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_GATEWAY_GATEWAY_H_
