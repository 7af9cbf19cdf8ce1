#include "service/status/StateView.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "service/gateway/GatewayFault.h"
#include "service/page/Html.h"

namespace postwright::service {
namespace {

// A row of a chart: what it is, its part of the whole as a bar, and in figures. The bar says
// nothing that the figures do not.
std::string Bar(std::string_view name, uint64_t part, uint64_t whole, const std::string& figure) {
  const uint64_t percent = whole == 0 ? 0 : std::min<uint64_t>(part, whole) * 100 / whole;
  return "<tr><th scope=\"row\">" + html::Text(name) +
         "</th><td class=\"bar\"><svg viewBox=\"0 0 100 8\" preserveAspectRatio=\"none\" "
         "height=\"8\" "
         "aria-hidden=\"true\"><rect class=\"track\" width=\"100\" height=\"8\" rx=\"2\"/><rect "
         "class=\"fill\" width=\"" +
         std::to_string(part > 0 ? std::max<uint64_t>(percent, 1) : 0) +
         "\" height=\"8\" rx=\"2\"/></svg></td><td>" + html::Text(figure) + "</td></tr>\n";
}

std::string Bar(std::string_view name, uint64_t part, uint64_t whole) {
  return Bar(name, part, whole, std::to_string(part));
}

// A row without a bar.
std::string Fact(std::string_view name, const std::string& text) {
  return text.empty() ? ""
                      : "<tr><th scope=\"row\">" + html::Text(name) + "</th><td colspan=\"2\">" +
                            html::Text(text) + "</td></tr>\n";
}

std::string Chart(const std::string& title, const std::string& rows) {
  return "<div><h3>" + title + "</h3>\n<table>" + rows + "</table></div>\n";
}

// The rows of a histogram, from the first that has a value to the last; `name` names a bound.
template <typename Name>
std::string Bars(const Histogram& values, Name name) {
  std::vector<uint64_t> counts(values.Bounds().size() + 1);
  for (size_t i = 0; i < counts.size(); ++i) {
    counts[i] = values.Count(i);
  }
  const auto isSome = [](uint64_t count) { return count > 0; };
  const auto first = std::find_if(counts.begin(), counts.end(), isSome);
  const auto last = std::find_if(counts.rbegin(), counts.rend(), isSome).base();
  const uint64_t most = *std::max_element(counts.begin(), counts.end());
  std::string rows;
  for (auto count = first; count < last; ++count) {
    const auto bound = static_cast<size_t>(count - counts.begin());
    const bool isLast = bound == values.Bounds().size();
    rows += Bar(
        isLast ? "above " + name(values.Bounds().back()) : "up to " + name(values.Bounds()[bound]),
        *count, most);
  }
  return rows;
}

std::string Short(double number, const char* unit) {
  char text[40] = "";
  return {text, static_cast<size_t>(std::snprintf(text, sizeof(text), "%g %s", number, unit))};
}

std::string Seconds(double seconds) {
  return seconds < 1 ? Short(seconds * 1000, "ms") : Short(seconds, "s");
}

std::string Age(double seconds) {
  constexpr double kHour = 3600;
  constexpr double kDay = 24 * kHour;
  return seconds <= kHour ? "an hour" : seconds == kDay ? "a day" : Short(seconds / kDay, "days");
}

}  // namespace

std::string StateView::Section() const {
  return "<section aria-labelledby=\"state\">\n<h2 id=\"state\">State of the service</h2>\n"
         "<p class=\"hint\">Since it was started. <a href=\"/status\">As text</a>, <a "
         "href=\"/metrics\">for Prometheus</a>.</p>\n<div class=\"charts\">\n" +
         Base() + Traffic() + Upstream() + Cache() + "</div>\n</section>\n";
}

std::string StateView::Base() const {
  std::string rows = Fact("ZIP codes", std::to_string(local_.Zips()->ZipCount()));
  for (const LocalSource::BaseName& base : local_.Bases()) {
    rows += Fact(base.name, "of " + base.date);
  }
  return Chart("Base",
               rows + (local_.Bases().empty() ? Fact("Streets", "none: no address base") : ""));
}

std::string StateView::Traffic() const {
  constexpr std::array<std::string_view, postal::kRejections> kReasons = {
      "invalid address", "invalid ZIP code", "invalid state",
      "invalid city",    "not found",        "several found"};
  const TrafficCounts& traffic = sources_.traffic;
  const uint64_t whole = traffic.found + traffic.Rejected() + traffic.unanswered;
  std::string rows = Bar("Found", traffic.found, whole);
  for (size_t i = 0; i < kReasons.size(); ++i) {
    if (traffic.rejected[i] > 0) {
      rows += Bar("Turned down: " + std::string(kReasons.at(i)), traffic.rejected[i], whole);
    }
  }
  rows += Bar("Without an answer", traffic.unanswered, whole);
  const std::string times = Bars(traffic.seconds, Seconds);
  return Chart("Addresses", rows) + (times.empty() ? "" : Chart("Time of an answer", times));
}

std::string StateView::Upstream() const {
  if (sources_.gateway == nullptr) {
    return "";
  }
  const GatewayState state = sources_.gateway->State();
  std::string rows = Fact("Asks", state.upstream);
  if (state.budget) {
    rows += Bar("Budget left", state.budgetLeft, state.budget->calls,
                std::to_string(state.budgetLeft) + " of " + Budget::Format(*state.budget));
  }
  if (state.resumesAt) {
    rows += Fact("Waits until", FormatDate(*state.resumesAt));
  }
  const uint64_t asked = state.calls + state.cached + state.joined;
  rows += Bar("Calls", state.calls, asked) + Bar("Spared by the cache", state.cached, asked) +
          Bar("Asked for already", state.joined, asked) +
          Fact("Waiting", std::to_string(state.waiting)) +
          Fact("Turned away", std::to_string(state.turnedAway));
  for (size_t kind = 0; kind < kFaultKinds; ++kind) {
    if (state.errors[kind] > 0) {
      rows += Fact("Errors: " + std::string(NameOf(static_cast<FaultKind>(kind))),
                   std::to_string(state.errors[kind]));
    }
  }
  const std::string times = Bars(sources_.gateway->CallSeconds(), Seconds);
  return Chart("Budget", rows) + (times.empty() ? "" : Chart("Time of a call", times));
}

std::string StateView::Cache() const {
  if (sources_.cache == nullptr) {
    return "";
  }
  const auto size = static_cast<uint64_t>(std::max<int64_t>(sources_.cache->Size(), 0));
  const auto most = static_cast<uint64_t>(AnswerCache::Limits().answers);
  const std::string ages = Bars(sources_.cache->HitAges(), Age);
  return Chart("Cache", Bar("Answers", size, most) +
                            Fact("Failures", std::to_string(sources_.cache->Failures())) +
                            Fact("Last failure", sources_.cache->LastFailure())) +
         (ages.empty() ? "" : Chart("Age of answers from the cache", ages));
}

}  // namespace postwright::service
