#include "platform/UrlFetch.h"

#include <postwright/FetchTimeout.h>

#include <new>
#include <optional>
#include <utility>

namespace postwright {

namespace {

constexpr long kMostRedirects = 20;

// The calling thread's connection, a new one after a fork.
HttpFetch& ThreadConnection() {
  thread_local std::optional<HttpFetch> connection;
  if (!connection || !connection->IsOurs()) {
    connection.emplace();
  }
  return *connection;
}

FetchOutcome OutcomeOf(HttpOutcome outcome) {
  switch (outcome) {
    case HttpOutcome::Answered:
      return FetchOutcomeAnswered;
    case HttpOutcome::BadUrl:
    case HttpOutcome::NotResolved:
      return FetchOutcomeNotResolved;
    case HttpOutcome::Refused:
      return FetchOutcomeRefused;
    case HttpOutcome::TimedOut:
      return FetchOutcomeTimedOut;
    case HttpOutcome::NoAnswer:
    case HttpOutcome::BrokeOff:
      return FetchOutcomeBrokeOff;
    case HttpOutcome::TooLong:
    case HttpOutcome::BadAnswer:
      return FetchOutcomeBadAnswer;
    case HttpOutcome::Cancelled:
      return FetchOutcomeAbandoned;
  }
  return FetchOutcomeUnknown;
}

}  // namespace

HttpLimits FetchLimits() {
  HttpLimits limits;
  limits.whole = GetFetchTimeout();
  limits.redirects = kMostRedirects;
  return limits;
}

std::vector<std::uint8_t> FetchUrl(const std::string& url, const HttpLimits& limits,
                                   FetchReport* report, std::vector<std::string> headers) noexcept {
  try {
    headers.emplace_back("Accept:");  // which libcurl would send by itself
    const HttpFetch::Reply reply =
        ThreadConnection().Send({.url = url, .headers = std::move(headers)}, limits);
    if (report != nullptr) {
      *report = {
          OutcomeOf(reply.outcome), reply.status,
          static_cast<std::int32_t>(reply.retryAfter.value_or(std::chrono::seconds(0)).count())};
    }
    if (reply.outcome == HttpOutcome::Answered) {
      return {reply.body.begin(), reply.body.end()};
    }
  } catch (const std::bad_alloc&) {
    // No memory is one more failed fetch: the caller keeps the user's text.
  }
  return {};
}

}  // namespace postwright
