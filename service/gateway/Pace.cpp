#include "service/gateway/Pace.h"

#include <algorithm>

namespace postwright::service {
namespace {

constexpr std::chrono::seconds kFirstPause(1);  // after a failure, doubled with each in a row
constexpr std::chrono::seconds kLongestPause(60);

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

}  // namespace

Clock::Time Pace::ReadyAt(Clock::Time now, size_t ahead) {
  return std::max({now, pausedUntil_, budget_.WhenFree(now, ahead)});
}

FaultKind Pace::ReasonAt(Clock::Time now, size_t ahead) {
  return ReadyAt(now, ahead) == pausedUntil_ ? pause_.kind : FaultKind::BudgetSpent;
}

bool Pace::IsPromised(Clock::Time now, FaultKind reason) const {
  return reason == FaultKind::BudgetSpent || reason == FaultKind::Quota ||
         (pausedUntil_ > now && pause_.retryAfter);
}

bool Pace::End(Clock::Time now, const UpstreamOutcome& outcome) {
  if (outcome.calls == 0) {
    budget_.GiveBack();
  }
  for (size_t extra = 1; extra < outcome.calls; ++extra) {
    budget_.Take(now);
  }
  const auto* const fault = std::get_if<UpstreamFault>(&outcome.answer);
  failures_ = fault != nullptr ? failures_ + 1 : 0;
  const auto pause = fault != nullptr ? PauseAfter(*fault, failures_) : std::chrono::seconds(0);
  const bool isLonger = pause.count() > 0 && now + pause > pausedUntil_;
  if (isLonger) {
    pausedUntil_ = now + pause;
    pause_ = *fault;
  }
  return isLonger;
}

void Pace::Resume() {
  pausedUntil_ = Clock::Time::min();
  failures_ = 0;
}

std::optional<UpstreamFault> Pace::PauseAt(Clock::Time now) const {
  return pausedUntil_ > now ? std::optional(pause_) : std::nullopt;
}

std::optional<Clock::Time> Pace::PausedUntil(Clock::Time now) const {
  return pausedUntil_ > now ? std::optional(pausedUntil_) : std::nullopt;
}

}  // namespace postwright::service
