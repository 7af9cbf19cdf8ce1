#include "service/gateway/Gateway.h"

#include <algorithm>

#include "service/gateway/GatewayFault.h"
#include "service/gateway/NormalRequest.h"

namespace postwright::service {
namespace {

constexpr std::chrono::seconds kFirstPause(1);  // after a failure, doubled with each in a row
constexpr std::chrono::seconds kLongestPause(60);
constexpr std::chrono::seconds kLogPause(60);  // between two lines on failures of one kind

// How long an upstream is left alone after a failure. A call that it did not understand, or an
// answer that nobody understands, may be one address's alone.
std::chrono::seconds PauseAfter(const UpstreamFault& fault, unsigned failuresInARow) {
  constexpr unsigned kMostDoublings = 6;
  switch (fault.kind) {
    case FaultKind::Quota:
    case FaultKind::Unauthorised:
    case FaultKind::Forbidden:
      return fault.retryAfter.value_or(kLongestPause);
    case FaultKind::ServerError:
    case FaultKind::Unreachable:
    case FaultKind::TimedOut:
      return fault.retryAfter.value_or(std::min(
          kLongestPause, kFirstPause * (1U << std::min(failuresInARow - 1, kMostDoublings))));
    default:
      return std::chrono::seconds(0);
  }
}

AddressAnswer ToAnswer(const AnswerCache::Kept& kept) {
  return std::visit([](const auto& value) -> AddressAnswer { return value; }, kept);
}

// What an outcome leaves to keep, where it is no fault.
std::optional<AnswerCache::Kept> ToKeep(const AddressAnswer& answer) {
  if (const auto* fields = std::get_if<ReplyFields>(&answer)) {
    return *fields;
  }
  const auto* const rejection = std::get_if<postal::Rejection>(&answer);
  return rejection == nullptr ? std::nullopt : std::optional<AnswerCache::Kept>(*rejection);
}

}  // namespace

Gateway::Gateway(Upstream& upstream, Zips zips, Budget budget, AnswerCache* cache,
                 const Clock& clock, const Limits& limits, RequestLog& log)
    : upstream_(upstream),
      zips_(std::move(zips)),
      cache_(cache),
      clock_(clock),
      limits_(limits),
      log_(log),
      budget_(std::move(budget)) {
  counts_.upstream = upstream_.Name();
  counts_.budget = budget_.GetRate();
  if (cache_ != nullptr && counts_.budget) {
    const Clock::Date today = clock_.Today();
    for (const Clock::Date call : cache_->CallsWithin(counts_.budget->stretch)) {
      budget_.Take(clock_.Now() - std::max(today - call, Clock::Date::duration(0)));
    }
  }
  threads_.emplace_back(&Gateway::Expire, this);
  for (unsigned i = 0; i < limits_.connections; ++i) {
    threads_.emplace_back(&Gateway::Work, this);
  }
}

Gateway::~Gateway() {
  {
    const std::lock_guard lock(mutex_);
    isStopping_ = true;
  }
  workable_.notify_all();
  expirable_.notify_all();
  upstream_.Stop();
  for (std::thread& thread : threads_) {
    thread.join();
  }
  for (const auto& [key, flight] : flights_) {
    for (const Waiter& waiter : flight->waiters) {
      waiter.done(TurnAway(FaultKind::Stopping));
    }
  }
}

void Gateway::Find(const RequestAddress& asked, const std::string& asker, Done done) {
  const auto normal = NormaliseRequest(asked, *zips_());
  if (const auto* rejection = std::get_if<postal::Rejection>(&normal)) {
    {
      const std::lock_guard lock(mutex_);
      ++counts_.turnedDownHere;
    }
    return done(*rejection);
  }
  const std::string key = KeyOf(std::get<RequestAddress>(normal));
  std::unique_lock lock(mutex_);
  for (;;) {
    const uint64_t landed = landed_;
    lock.unlock();
    const auto kept = cache_ != nullptr ? cache_->Find(key) : std::nullopt;
    lock.lock();
    if (kept) {
      ++counts_.cached;
      lock.unlock();
      return done(ToAnswer(*kept));
    }
    if (landed == landed_ || cache_ == nullptr) {
      break;  // no flight has landed since the cache was asked, so this address's has not, either
    }
  }
  Deliveries deliveries = Enter(key, std::get<RequestAddress>(normal), asker, std::move(done));
  lock.unlock();
  Deliver(std::move(deliveries));
}

void Gateway::ReloadCredentials() {
  upstream_.ReloadCredentials();
  {
    const std::lock_guard lock(mutex_);
    pausedUntil_ = Clock::Time::min();
    failures_ = 0;
  }
  workable_.notify_all();
}

GatewayState Gateway::State() {
  const std::lock_guard lock(mutex_);
  const Clock::Time now = clock_.Now();
  GatewayState state = counts_;
  state.waiting = queue_.Size();
  state.budgetLeft = budget_.Left(now);
  if (const Clock::Time ready = ReadyAt(now, 0); ready > now) {
    state.resumesAt = DateOf(ready);
  }
  if (pausedUntil_ > now) {
    state.pause = pause_;
  }
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
    ++counts_.joined;
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
  if (ReadyAt(now, queue_.Size()) > now + limits_.deadline) {
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

// When the call behind `ahead` others can be made.
Clock::Time Gateway::ReadyAt(Clock::Time now, size_t ahead) {
  return std::max({now, pausedUntil_, budget_.WhenFree(now, ahead)});
}

// Why that call cannot be made in time.
ServiceFault Gateway::Blocked(Clock::Time now, size_t ahead) {
  const Clock::Time ready = ReadyAt(now, ahead);
  return TurnAway(ready == pausedUntil_ ? pause_.kind : FaultKind::BudgetSpent, ready);
}

ServiceFault Gateway::TurnAway(FaultKind kind, std::optional<Clock::Time> resumesAt) {
  ++counts_.turnedAway;
  const bool isOwn = kind >= FaultKind::BudgetSpent;
  counts_.errors[static_cast<size_t>(kind)] += isOwn ? 1 : 0;  // the upstream's count by the call
  return ExplainFault(kind, resumesAt ? std::optional(DateOf(*resumesAt)) : std::nullopt);
}

Clock::Date Gateway::DateOf(Clock::Time time) const {
  return clock_.Today() + std::chrono::duration_cast<Clock::Date::duration>(time - clock_.Now());
}

// One of the threads that make calls.
void Gateway::Work() {
  std::unique_lock lock(mutex_);
  while (!isStopping_) {
    const Clock::Time now = clock_.Now();
    const Clock::Time ready = queue_.Size() == 0 ? Clock::Time::max() : ReadyAt(now, 0);
    if (ready > now) {
      clock_.Wait(workable_, lock, ready);
      continue;
    }
    const FlightPointer flight = queue_.Pop();
    flight->isCalled = true;
    budget_.Take(now);
    ++counts_.calling;
    lock.unlock();
    Call(flight);
    lock.lock();
  }
}

// A call that was made is finished and kept also where nobody waits for it any more: it is paid.
void Gateway::Call(const FlightPointer& flight) {
  const Clock::Time begun = clock_.Now();
  const UpstreamOutcome outcome = AskUpstream(flight->normal);
  Deliveries deliveries;
  std::optional<AnswerCache::Kept> toKeep;
  {
    const std::lock_guard lock(mutex_);
    --counts_.calling;
    counts_.callSeconds += std::chrono::duration<double>(clock_.Now() - begun).count();
    deliveries = Settle(flight, outcome);
    toKeep = flight->answer ? ToKeep(*flight->answer) : std::nullopt;
  }
  Deliver(std::move(deliveries));
  for (size_t i = 0; cache_ != nullptr && i < outcome.calls; ++i) {
    cache_->NoteCall();
  }
  if (toKeep && cache_ != nullptr) {
    cache_->Keep(flight->key, *toKeep);
  }
  if (toKeep) {
    const std::lock_guard lock(mutex_);
    flights_.erase(flight->key);
    ++landed_;
  }
}

UpstreamOutcome Gateway::AskUpstream(const RequestAddress& normal) {
  try {
    return upstream_.Ask(normal);
  } catch (const std::exception& failure) {
    // No memory, most likely: this address stays unanswered, and the gateway goes on.
    return {UpstreamFault{FaultKind::BadReply, {}, failure.what()}, 1};
  }
}

// Gives an outcome to all who wait for it. An address that the upstream had no room for goes back
// into the queue, if there is time.
Gateway::Deliveries Gateway::Settle(const FlightPointer& flight, const UpstreamOutcome& outcome) {
  Book(outcome);
  const auto* const fault = std::get_if<UpstreamFault>(&outcome.answer);
  if (fault == nullptr) {
    failures_ = 0;
  } else {
    NoteFault(*fault);
  }
  if (fault != nullptr && fault->kind == FaultKind::Quota && !isStopping_) {
    flight->isCalled = false;
    queue_.PutBack(flight->asker, flight);
    expirable_.notify_one();
    return {};
  }
  Deliveries deliveries;
  if (fault != nullptr) {
    const bool isPaused = pausedUntil_ > clock_.Now();
    flight->answer = ExplainFault(isStopping_ ? FaultKind::Stopping : fault->kind,
                                  isPaused ? std::optional(DateOf(pausedUntil_)) : std::nullopt);
    counts_.turnedAway += flight->waiters.size();
    flights_.erase(flight->key);  // there is nothing to keep, and the next call may go well
  } else if (const auto* fields = std::get_if<ReplyFields>(&outcome.answer)) {
    flight->answer = *fields;
  } else {
    flight->answer = std::get<postal::Rejection>(outcome.answer);
  }
  for (Waiter& waiter : flight->waiters) {
    deliveries.push_back({std::move(waiter.done), *flight->answer});
  }
  flight->waiters.clear();
  return deliveries;
}

// One call was booked when it began; it may have been none, or two.
void Gateway::Book(const UpstreamOutcome& outcome) {
  counts_.calls += outcome.calls;
  if (outcome.calls == 0) {
    budget_.GiveBack();
  }
  for (size_t extra = 1; extra < outcome.calls; ++extra) {
    budget_.Take(clock_.Now());
  }
}

void Gateway::NoteFault(const UpstreamFault& fault) {
  const Clock::Time now = clock_.Now();
  ++failures_;
  ++counts_.errors[static_cast<size_t>(fault.kind)];
  const bool isNew = !counts_.lastError || counts_.lastError->kind != fault.kind;
  counts_.lastError = fault;
  counts_.lastErrorAt = clock_.Today();
  const std::chrono::seconds pause = PauseAfter(fault, failures_);
  if (pause.count() > 0 && now + pause > pausedUntil_) {
    pausedUntil_ = now + pause;
    pause_ = fault;
    expirable_.notify_one();
  }
  if (isNew || now - loggedAt_ > kLogPause) {
    loggedAt_ = now;
    log_.Write("upstream: " + std::string(NameOf(fault.kind)) + " (" + fault.detail + ")" +
               (pausedUntil_ > now ? "; asked again at " + FormatDate(DateOf(pausedUntil_)) : ""));
  }
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
  const Clock::Time ready = ReadyAt(now, 0);
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

void Gateway::Deliver(Deliveries deliveries) {
  for (Delivery& delivery : deliveries) {
    delivery.done(std::move(delivery.answer));
  }
}

}  // namespace postwright::service
