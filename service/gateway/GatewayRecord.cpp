#include "service/gateway/GatewayRecord.h"

#include "service/gateway/GatewayFault.h"

namespace postwright::service {
namespace {

constexpr std::chrono::seconds kLogPause(60);  // between two lines on failures of one kind

}  // namespace

GatewayRecord::GatewayRecord(const std::string& upstream, std::optional<Budget::Rate> budget,
                             const Clock& clock, RequestLog& log)
    : clock_(clock), log_(log) {
  state_.upstream = upstream;
  state_.budget = budget;
}

void GatewayRecord::TurnedAway(FaultKind kind, size_t addresses) {
  state_.turnedAway += addresses;
  const bool isOwn = kind >= FaultKind::BudgetSpent;
  state_.errors[static_cast<size_t>(kind)] += isOwn ? addresses : 0;
}

void GatewayRecord::CallEnds(Clock::Time begun) {
  --state_.calling;
  callSeconds_.Note(std::chrono::duration<double>(clock_.Now() - begun).count());
}

void GatewayRecord::Failed(const UpstreamFault& fault, std::optional<Clock::Time> pausedUntil) {
  const Clock::Time now = clock_.Now();
  ++state_.errors[static_cast<size_t>(fault.kind)];
  const bool isNew = !state_.lastError || state_.lastError->kind != fault.kind;
  state_.lastError = fault;
  state_.lastErrorAt = clock_.Today();
  if (isNew || now - loggedAt_ > kLogPause) {
    loggedAt_ = now;
    log_.Write("upstream: " + std::string(NameOf(fault.kind)) + " (" + fault.detail + ")" +
               (pausedUntil ? "; asked again at " + FormatDate(clock_.DateOf(*pausedUntil)) : ""));
  }
}

}  // namespace postwright::service
