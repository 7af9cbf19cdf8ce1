#include "service/gateway/Budget.h"

#include <algorithm>
#include <charconv>

namespace postwright::service {
namespace {

struct UnitRow {
  std::string_view name;
  std::chrono::seconds stretch;
};

constexpr UnitRow kUnits[] = {
    {"s", std::chrono::seconds(1)},
    {"min", std::chrono::minutes(1)},
    {"h", std::chrono::hours(1)},
    {"d", std::chrono::hours(24)},
};

}  // namespace

std::optional<Budget::Rate> Budget::ParseRate(std::string_view text) {
  Rate rate;
  const char* const end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, rate.calls);
  if (error != std::errc() || rate.calls < 1 || rate.calls > kMostCalls || rest == end ||
      *rest != '/') {
    return std::nullopt;
  }
  const std::string_view name(rest + 1, static_cast<size_t>(end - rest - 1));
  for (const UnitRow& row : kUnits) {
    if (row.name == name) {
      rate.stretch = row.stretch;
      return rate;
    }
  }
  return std::nullopt;
}

std::string Budget::Format(const Rate& rate) {
  std::string text = std::to_string(rate.calls) + '/';
  for (const UnitRow& row : kUnits) {
    if (row.stretch == rate.stretch) {
      return text.append(row.name);
    }
  }
  return text + std::to_string(rate.stretch.count()) + 's';
}

// The window at any moment holds the calls of the stretch before it, so the call after n others
// comes when the one `calls` places before it leaves.
Clock::Time Budget::WhenFree(Clock::Time now, size_t ahead) {
  if (!rate_) {
    return now;
  }
  Forget(now);
  const size_t place = calls_.size() + ahead;  // in the sequence of all calls
  if (place < rate_->calls) {
    return now;
  }
  const size_t before = place - rate_->calls;
  const Clock::Time leaver =
      before < calls_.size() ? calls_[before] : WhenFree(now, ahead - rate_->calls);
  return leaver + rate_->stretch;
}

size_t Budget::Left(Clock::Time now) {
  Forget(now);
  return rate_ ? rate_->calls - std::min(rate_->calls, calls_.size()) : kMostCalls;
}

void Budget::Take(Clock::Time at) {
  if (rate_) {
    calls_.insert(std::upper_bound(calls_.begin(), calls_.end(), at), at);
    if (calls_.size() > kMostCalls) {
      calls_.pop_front();
    }
  }
}

void Budget::GiveBack() {
  if (!calls_.empty()) {
    calls_.pop_back();
  }
}

void Budget::Forget(Clock::Time now) {
  while (rate_ && !calls_.empty() && calls_.front() + rate_->stretch <= now) {
    calls_.pop_front();
  }
}

}  // namespace postwright::service
