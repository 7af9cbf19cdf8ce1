#include "service/gateway/Gateway.h"

#include <algorithm>
#include <utility>

#include "service/gateway/GatewayFault.h"
#include "service/gateway/NormalRequest.h"

namespace postwright::service {

Gateway::Gateway(Upstream& upstream, Zips zips, Budget budget, AnswerCache* cache,
                 const Clock& clock, const Limits& limits, RequestLog& log)
    : upstream_(upstream),
      zips_(std::move(zips)),
      cache_(cache),
      clock_(clock),
      limits_(limits),
      pace_(std::move(budget)),
      record_(upstream.Name(), pace_.GetRate(), clock, log) {
  if (const auto rate = pace_.GetRate(); cache_ != nullptr && rate) {
    const Clock::Date today = clock_.Today();
    for (const Clock::Date call : cache_->CallsWithin(rate->stretch)) {
      pace_.Begin(clock_.Now() - std::max(today - call, Clock::Date::duration(0)));
    }
  }
  threads_.emplace_back(&Gateway::Expire, this);
  for (unsigned i = 0; i < limits_.connections; ++i) {
    threads_.emplace_back(&Gateway::Work, this);
  }
}

Gateway::~Gateway() {
  Stop();
}

void Gateway::Stop() {
  {
    const std::lock_guard lock(mutex_);
    if (std::exchange(isStopping_, true)) {
      return;
    }
  }
  workable_.notify_all();
  expirable_.notify_all();
  upstream_.Stop();
  for (std::thread& thread : threads_) {
    thread.join();
  }
  Deliveries left;
  {
    const std::lock_guard lock(mutex_);
    for (const auto& [key, flight] : flights_) {
      for (Waiter& waiter : flight->waiters) {
        left.push_back({std::move(waiter.done), TurnAway(FaultKind::Stopping)});
      }
    }
    flights_.clear();
  }
  Deliver(std::move(left));
}

void Gateway::Find(const RequestAddress& asked, const std::string& asker, Done done) {
  const auto normal = NormaliseRequest(asked, *zips_());
  if (const auto* rejection = std::get_if<postal::Rejection>(&normal)) {
    {
      const std::lock_guard lock(mutex_);
      record_.TurnedDownHere();
    }
    return done(*rejection);
  }
  RequestAddress address = std::get<NormalRequest>(normal).address;
  // One question for however many candidates are wanted, which answers those who want none, too,
  // and who wants the ZIP+4 alone.
  const bool offers = upstream_.OffersCandidates();
  const size_t wanted = offers && asked.call == AddressCall::Verify ? asked.candidates : 0;
  RequestAddress fullest = address;
  if (fullest.call != AddressCall::City) {
    fullest.call = AddressCall::Verify;
    fullest.candidates = offers ? postal::Candidate::kMost : 0;
  }
  const std::string fullKey = KeyOf(fullest);
  address.candidates = wanted > 0 ? postal::Candidate::kMost : 0;
  const std::string key = KeyOf(address);
  done = [above = std::get<NormalRequest>(normal).above, wanted,
          done = std::move(done)](AddressAnswer answer) {
    answer.candidates.resize(std::min(answer.candidates.size(), wanted));
    answer.PutAbove(above);
    done(std::move(answer));
  };
  std::unique_lock lock(mutex_);
  for (;;) {
    const uint64_t landed = landed_;
    lock.unlock();
    auto kept = FindKept(key, fullKey);
    lock.lock();
    if (kept) {
      record_.Cached();
      lock.unlock();
      return done(std::move(*kept));
    }
    if (landed == landed_ || cache_ == nullptr) {
      break;  // no flight has landed since the cache was asked, so this address's has not, either
    }
  }
  Deliveries deliveries =
      Enter(flights_.contains(fullKey) ? fullKey : key, address, asker, std::move(done));
  lock.unlock();
  Deliver(std::move(deliveries));
}

std::optional<AddressAnswer> Gateway::FindKept(const std::string& key, const std::string& fullKey) {
  if (cache_ == nullptr) {
    return std::nullopt;
  }
  auto kept = cache_->Find(key);
  return kept || key == fullKey ? std::move(kept) : cache_->Find(fullKey);
}

void Gateway::ReloadCredentials() {
  upstream_.ReloadCredentials();
  {
    const std::lock_guard lock(mutex_);
    pace_.Resume();
  }
  workable_.notify_all();
}

GatewayState Gateway::State() {
  const std::lock_guard lock(mutex_);
  const Clock::Time now = clock_.Now();
  GatewayState state = record_.State();
  state.waiting = queue_.Size();
  state.budgetLeft = pace_.Left(now);
  if (const Clock::Time ready = pace_.ReadyAt(now, 0); ready > now) {
    state.resumesAt = clock_.DateOf(ready);
  }
  state.pause = pace_.PauseAt(now);
  return state;
}

// Joins a flight or begins one, or turns the asker away.
Gateway::Deliveries Gateway::Enter(const std::string& key, const RequestAddress& normal,
                                   const std::string& asker, Done done) {
  Deliveries deliveries;
  const Clock::Time now = clock_.Now();
  const auto found = flights_.find(key);
  if (found == flights_.end()) {
    if (auto fault = MakeRoom(asker, now, deliveries)) {
      deliveries.push_back({std::move(done), std::move(*fault)});
      return deliveries;
    }
  } else {
    record_.Joined();
    if (found->second->answer) {
      deliveries.push_back({std::move(done), *found->second->answer});
      return deliveries;
    }
  }
  FlightPointer& flight = flights_[key];
  if (flight == nullptr) {
    flight = std::make_shared<Flight>(key, asker, normal);
    queue_.Push(asker, flight);
    workable_.notify_one();
  }
  flight->waiters.push_back({std::move(done), now + limits_.deadline});
  expirable_.notify_one();
  return deliveries;
}

// Sees to it that one more address may wait, or says why it may not.
std::optional<ServiceFault> Gateway::MakeRoom(const std::string& asker, Clock::Time now,
                                              Deliveries& displaced) {
  if (isStopping_) {
    return TurnAway(FaultKind::Stopping);
  }
  if (pace_.ReadyAt(now, queue_.Size()) > now + limits_.deadline) {
    return Blocked(now, queue_.Size());
  }
  if (queue_.Size() < limits_.waiting) {
    return std::nullopt;
  }
  const std::optional<FlightPointer> flight = queue_.Displace(asker);
  if (!flight) {
    return TurnAway(FaultKind::QueueFull);
  }
  for (Waiter& waiter : (*flight)->waiters) {
    displaced.push_back({std::move(waiter.done), TurnAway(FaultKind::QueueFull)});
  }
  flights_.erase((*flight)->key);
  return std::nullopt;
}

// Why the call after `ahead` others cannot be made in time.
ServiceFault Gateway::Blocked(Clock::Time now, size_t ahead) {
  return TurnAway(pace_.ReasonAt(now, ahead), pace_.ReadyAt(now, ahead));
}

ServiceFault Gateway::TurnAway(FaultKind kind, std::optional<Clock::Time> resumesAt,
                               size_t addresses) {
  record_.TurnedAway(kind, addresses);
  if (!resumesAt) {
    return ExplainFault(kind, std::nullopt);
  }
  ServiceFault fault = ExplainFault(kind, clock_.DateOf(*resumesAt));
  const Clock::Time now = clock_.Now();
  if (pace_.IsPromised(now, kind)) {
    fault.retryAfter = std::chrono::ceil<std::chrono::seconds>(*resumesAt - now);
  }
  return fault;
}

// One of the threads that make calls.
void Gateway::Work() {
  std::unique_lock lock(mutex_);
  while (!isStopping_) {
    const Clock::Time now = clock_.Now();
    const Clock::Time ready = queue_.Size() == 0 ? Clock::Time::max() : pace_.ReadyAt(now, 0);
    if (ready > now) {
      clock_.Wait(workable_, lock, ready);
      continue;
    }
    const FlightPointer flight = queue_.Pop();
    flight->isCalled = true;
    pace_.Begin(now);
    record_.CallBegins();
    lock.unlock();
    Call(flight);
    lock.lock();
  }
}

// A call that was made is finished and kept also where nobody waits for it any more: it is paid.
void Gateway::Call(const FlightPointer& flight) {
  if (cache_ != nullptr) {
    cache_->NoteCall();
  }
  const Clock::Time begun = clock_.Now();
  const UpstreamOutcome outcome = AskUpstream(flight->normal);
  Deliveries deliveries;
  {
    const std::lock_guard lock(mutex_);
    record_.CallEnds(begun);
    deliveries = Settle(flight, outcome);
  }
  if (cache_ != nullptr && outcome.calls == 0) {
    cache_->TakeBackCall();
  }
  for (size_t i = 1; cache_ != nullptr && i < outcome.calls; ++i) {
    cache_->NoteCall();
  }
  Deliver(std::move(deliveries));
  if (std::holds_alternative<UpstreamFault>(outcome.answer)) {
    return;
  }
  if (cache_ != nullptr && outcome.isComplete) {
    cache_->Keep(flight->key, outcome.ToAnswer());
  }
  const std::lock_guard lock(mutex_);
  flights_.erase(flight->key);
  ++landed_;
}

UpstreamOutcome Gateway::AskUpstream(const RequestAddress& normal) try {
  return upstream_.Ask(normal);
} catch (const std::exception& failure) {  // no memory, most likely: the gateway goes on
  return {UpstreamFault{FaultKind::BadReply, {}, failure.what()}, 1};
}

// Gives an outcome to all who wait for it. An address that the upstream had no room for goes back
// into the queue, if there is time.
Gateway::Deliveries Gateway::Settle(const FlightPointer& flight, const UpstreamOutcome& outcome) {
  const auto* const fault = std::get_if<UpstreamFault>(&outcome.answer);
  record_.CallsCounted(outcome.calls);
  if (pace_.End(clock_.Now(), outcome)) {
    expirable_.notify_one();
  }
  if (fault != nullptr) {
    record_.Failed(*fault, pace_.PausedUntil(clock_.Now()));
  }
  if (fault != nullptr && fault->kind == FaultKind::Quota && !isStopping_) {
    flight->isCalled = false;
    queue_.PutBack(flight->asker, flight);
    expirable_.notify_one();
    return {};
  }
  Deliveries deliveries;
  if (fault != nullptr) {
    flight->answer = TurnAway(isStopping_ ? FaultKind::Stopping : fault->kind,
                              pace_.PausedUntil(clock_.Now()), flight->waiters.size());
    flights_.erase(flight->key);  // there is nothing to keep, and the next call may go well
  } else {
    flight->answer = outcome.ToAnswer();
    flight->answer->source = {ReplySource::Kind::Upstream, upstream_.Name()};
  }
  for (Waiter& waiter : flight->waiters) {
    deliveries.push_back({std::move(waiter.done), *flight->answer});
  }
  flight->waiters.clear();
  return deliveries;
}

// The thread that ends waiting in vain.
void Gateway::Expire() {
  std::unique_lock lock(mutex_);
  while (!isStopping_) {
    Clock::Time next = Clock::Time::max();
    Deliveries lost = TakeLost(clock_.Now(), &next);
    if (lost.empty()) {
      clock_.Wait(expirable_, lock, next);
    } else {
      lock.unlock();
      Deliver(std::move(lost));
      lock.lock();
    }
  }
}

// Takes out those whose time is over, and those whose turn cannot come before it is. Says when to
// look again.
Gateway::Deliveries Gateway::TakeLost(Clock::Time now, Clock::Time* next) {
  Deliveries lost;
  const Clock::Time ready = pace_.ReadyAt(now, 0);
  for (auto at = flights_.begin(); at != flights_.end();) {
    Flight& flight = *at->second;
    std::vector<Waiter> waiters;
    waiters.swap(flight.waiters);
    for (Waiter& waiter : waiters) {
      const bool isBlocked = !flight.isCalled && ready > waiter.deadline;
      if (isBlocked || waiter.deadline <= now) {
        lost.push_back(
            {std::move(waiter.done), isBlocked ? Blocked(now, 0) : TurnAway(FaultKind::Late)});
      } else {
        *next = std::min(*next, waiter.deadline);
        flight.waiters.push_back(std::move(waiter));
      }
    }
    const bool isOver = flight.waiters.empty() && !flight.isCalled;
    if (isOver) {
      queue_.Remove(flight.asker, at->second);
    }
    at = isOver ? flights_.erase(at) : std::next(at);
  }
  return lost;
}

}  // namespace postwright::service
