#include "service/status/StatusPages.h"

#include <cstdio>
#include <utility>

#include "service/gateway/GatewayFault.h"

namespace postwright::service {
namespace {

constexpr int kForbidden = 403;

std::string Count(uint64_t number, const std::string& of) {
  return std::to_string(number) + ' ' + of + (number == 1 ? "" : "s");
}

std::string Decimal(double number) {
  char text[40] = "";
  return {text, static_cast<size_t>(std::snprintf(text, sizeof(text), "%.3f", number))};
}

std::string FormatStretch(Clock::Time::duration stretch) {
  const auto minutes = std::chrono::duration_cast<std::chrono::minutes>(stretch).count();
  constexpr long kHour = 60;
  constexpr long kDay = 24 * kHour;
  return minutes >= kDay    ? Count(static_cast<uint64_t>(minutes / kDay), "day")
         : minutes >= kHour ? Count(static_cast<uint64_t>(minutes / kHour), "hour")
                            : Count(static_cast<uint64_t>(minutes), "minute");
}

// A line of the page for people.
void Line(std::string& page, std::string_view name, const std::string& text) {
  constexpr size_t kNameWidth = 12;
  page.append(name).append(kNameWidth - name.size(), ' ').append(text).append("\n");
}

// A metric of one value.
void Metric(std::string& page, const std::string& name, const std::string& type,
            const std::string& help, const std::string& value) {
  page += "# HELP " + name + ' ' + help + "\n# TYPE " + name + ' ' + type + '\n' + name + ' ' +
          value + '\n';
}

// One value of several under one name.
void Labelled(std::string& page, const std::string& name, const std::string& label,
              std::string_view labelValue, uint64_t value) {
  page +=
      name + '{' + label + "=\"" + std::string(labelValue) + "\"} " + std::to_string(value) + '\n';
}

// A bound as a label says it, "0.00025" and "2.592e+06".
std::string Short(double number) {
  char text[40] = "";
  return {text, static_cast<size_t>(std::snprintf(text, sizeof(text), "%g", number))};
}

// Values by their size: each bound's line counts all below it.
void AppendHistogram(std::string& page, const std::string& name, const std::string& help,
                     const Histogram& values) {
  page += "# HELP " + name + ' ' + help + "\n# TYPE " + name + " histogram\n";
  uint64_t count = 0;
  for (size_t i = 0; i <= values.Bounds().size(); ++i) {
    count += values.Count(i);
    const bool isLast = i == values.Bounds().size();
    Labelled(page, name + "_bucket", "le", isLast ? "+Inf" : Short(values.Bounds()[i]), count);
  }
  page += name + "_sum " + Decimal(values.Sum()) + '\n' + name + "_count " + std::to_string(count) +
          '\n';
}

std::string DescribeBudget(const GatewayState& state) {
  if (!state.budget) {
    return "no bound";
  }
  return std::to_string(state.budgetLeft) + " of " + Budget::Format(*state.budget) + " left";
}

std::string DescribeTurn(const GatewayState& state) {
  if (!state.resumesAt) {
    return "asks";
  }
  const std::string until = "waits until " + FormatDate(*state.resumesAt) + ": ";
  return until + (state.pause
                      ? std::string(NameOf(state.pause->kind)) + " (" + state.pause->detail + ")"
                      : "the budget is spent");
}

std::string DescribeErrors(const GatewayState& state) {
  std::string text;
  for (size_t kind = 0; kind < kFaultKinds; ++kind) {
    if (state.errors[kind] > 0) {
      text += (text.empty() ? "" : ", ") + std::string(NameOf(static_cast<FaultKind>(kind))) + ' ' +
              std::to_string(state.errors[kind]);
    }
  }
  if (text.empty()) {
    return "none";
  }
  if (state.lastError) {
    text += "; last " + std::string(NameOf(state.lastError->kind)) + " (" +
            state.lastError->detail + ") at " + FormatDate(*state.lastErrorAt);
  }
  return text;
}

std::string DescribeAddresses(const TrafficCounts& traffic) {
  return std::to_string(traffic.found) + " found, " + std::to_string(traffic.Rejected()) +
         " turned down, " + std::to_string(traffic.unanswered) + " without an answer";
}

// Addresses by what became of them.
void AppendOutcomes(std::string& page, const std::string& name, const std::string& what,
                    const TrafficCounts& traffic) {
  page += "# HELP " + name + ' ' + what + "\n# TYPE " + name + " counter\n";
  Labelled(page, name, "outcome", "found", traffic.found);
  Labelled(page, name, "outcome", "rejected", traffic.Rejected());
  Labelled(page, name, "outcome", "unanswered", traffic.unanswered);
}

void AppendGateway(std::string& page, const GatewayState& state, double callSeconds) {
  Line(page, "Upstream", state.upstream);
  Line(page, "", DescribeTurn(state));
  Line(page, "Budget", DescribeBudget(state));
  Line(page, "Waiting",
       std::to_string(state.waiting) + (state.waiting == 1 ? " address" : " addresses"));
  Line(page, "Asked",
       Count(state.calls, "call") + ", " + std::to_string(state.calling) + " under way" +
           (state.calls == 0 ? ""
                             : ", " + Decimal(callSeconds / static_cast<double>(state.calls)) +
                                   " s on average"));
  Line(page, "Not asked",
       std::to_string(state.cached) + " answered from the cache, " + std::to_string(state.joined) +
           " asked for already, " + std::to_string(state.turnedDownHere) +
           " that nobody could answer, " + std::to_string(state.turnedAway) + " turned away");
  Line(page, "Errors", DescribeErrors(state));
}

void AppendGatewayMetrics(std::string& page, Gateway& gateway) {
  const GatewayState state = gateway.State();
  Metric(page, "postwright_upstream_calls_total", "counter", "Calls of the upstream.",
         std::to_string(state.calls));
  AppendHistogram(page, "postwright_upstream_call_seconds", "Time that each took.",
                  gateway.CallSeconds());
  Metric(page, "postwright_upstream_calls_under_way", "gauge", "Calls under way.",
         std::to_string(state.calling));
  Metric(page, "postwright_upstream_waiting", "gauge", "Addresses that wait for a call.",
         std::to_string(state.waiting));
  Metric(page, "postwright_upstream_paused", "gauge", "1 while no call may be made.",
         state.resumesAt ? "1" : "0");
  if (state.budget) {
    Metric(page, "postwright_upstream_budget_left", "gauge", "Calls that may be made at once.",
           std::to_string(state.budgetLeft));
  }
  Metric(page, "postwright_cached_total", "counter", "Addresses answered from the cache.",
         std::to_string(state.cached));
  Metric(page, "postwright_joined_total", "counter", "Addresses that were being asked for already.",
         std::to_string(state.joined));
  Metric(page, "postwright_turned_away_total", "counter", "Addresses without an answer.",
         std::to_string(state.turnedAway));
  page +=
      "# HELP postwright_errors_total Calls that failed and addresses turned away, by kind.\n"
      "# TYPE postwright_errors_total counter\n";
  for (size_t kind = 0; kind < kFaultKinds; ++kind) {
    Labelled(page, "postwright_errors_total", "kind", NameOf(static_cast<FaultKind>(kind)),
             state.errors[kind]);
  }
}

}  // namespace

StatusPages::StatusPages(const Sources& sources, const Clock& clock, std::string version,
                         HostAccess access)
    : sources_(sources),
      clock_(clock),
      version_(std::move(version)),
      access_(std::move(access)),
      started_(clock.Now()) {}

std::optional<HttpReply> StatusPages::Answer(const HttpRequest& request) const {
  const bool isStatus = request.path == "/status";
  if (!isStatus && request.path != "/metrics") {
    return std::nullopt;
  }
  const std::string note = isStatus ? "path=status" : "path=metrics";
  if (!access_.Allows(request)) {
    return TextReply(
        kForbidden,
        "This page is shown on the service's own machine alone, for an address of it.\n"
        "--open-status HOST shows it to whoever asks for HOST.\n",
        note);
  }
  return isStatus ? TextReply(200, Status(), note)
                  : HttpReply{200, "text/plain; version=0.0.4; charset=utf-8", Metrics(), note};
}

std::string StatusPages::Status() const {
  const TrafficCounts& traffic = sources_.traffic;
  std::string page = "postwright-verifyd " + version_ + ", up for " +
                     FormatStretch(clock_.Now() - started_) + "\n\n";
  Line(page, "Documents",
       std::to_string(traffic.documents) + " read, " + std::to_string(traffic.unreadable) +
           " that could not be, " + std::to_string(traffic.strangers) + " of unknown users");
  Line(page, "Addresses", DescribeAddresses(traffic));
  if (sources_.people != nullptr) {
    Line(page, "On the page", DescribeAddresses(*sources_.people));
  }
  if (sources_.gateway == nullptr) {
    return page;
  }
  page += '\n';
  AppendGateway(page, sources_.gateway->State(), sources_.gateway->CallSeconds().Sum());
  if (sources_.fallback != nullptr) {
    Line(page, "Fallback",
         std::to_string(sources_.fallback->Count()) + " answered from the local base");
  }
  if (const AnswerCache* const cache = sources_.cache) {
    const std::string failure = cache->LastFailure();
    Line(page, "Cache",
         Count(static_cast<uint64_t>(cache->Size()), "answer") + " in " + cache->File().string());
    Line(page, "", Count(cache->Failures(), "failure") + (failure.empty() ? "" : "; " + failure));
  }
  return page;
}

std::string StatusPages::Metrics() const {
  const TrafficCounts& traffic = sources_.traffic;
  std::string page;
  Metric(page, "postwright_documents_total", "counter", "Requests that were answered.",
         std::to_string(traffic.documents));
  Metric(page, "postwright_unreadable_documents_total", "counter", "Requests that could not.",
         std::to_string(traffic.unreadable));
  Metric(page, "postwright_unauthorised_documents_total", "counter", "Requests of unknown users.",
         std::to_string(traffic.strangers));
  AppendOutcomes(page, "postwright_addresses_total", "Addresses by what became of them.", traffic);
  if (sources_.people != nullptr) {
    AppendOutcomes(page, "postwright_page_addresses_total",
                   "Addresses asked on the page for people.", *sources_.people);
  }
  page +=
      "# HELP postwright_rejections_total Addresses turned down, by the interface's number.\n"
      "# TYPE postwright_rejections_total counter\n";
  for (size_t i = 0; i < postal::kRejections; ++i) {
    Labelled(page, "postwright_rejections_total", "number",
             VerifyReply::NumberOf(static_cast<postal::Rejection>(i)), traffic.rejected[i]);
  }
  AppendHistogram(page, "postwright_document_seconds",
                  "Time from a document's arrival to its reply.", traffic.seconds);
  if (sources_.gateway != nullptr) {
    AppendGatewayMetrics(page, *sources_.gateway);
  }
  if (sources_.fallback != nullptr) {
    Metric(page, "postwright_fallback_total", "counter", "Addresses answered from the local base.",
           std::to_string(sources_.fallback->Count()));
  }
  if (const AnswerCache* const cache = sources_.cache) {
    Metric(page, "postwright_cache_answers", "gauge", "Answers that the cache holds.",
           std::to_string(cache->Size()));
    AppendHistogram(page, "postwright_cache_hit_age_seconds", "Age of each answer from the cache.",
                    cache->HitAges());
    Metric(page, "postwright_cache_failures_total", "counter", "What could not be kept or read.",
           std::to_string(cache->Failures()));
  }
  return page;
}

}  // namespace postwright::service
