#include "platform/UrlFetch.h"

#include <postwright/FetchTimeout.h>
#include <postwright/LocalAnswers.h>
#include <postwright/NetworkReachability.h>

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

// The host of `url`, with a port where it has one.
std::string HostOf(const std::string& url) {
  const std::size_t scheme = url.find("://");
  const std::size_t begin = scheme == std::string::npos ? 0 : scheme + 3;
  const std::string host = url.substr(begin, url.find_first_of("/?#", begin) - begin);
  return host.substr(host.rfind('@') + 1);
}

// libcurl does not say whether there is no such name or nobody who could know it.
FetchOutcome WhyNotResolved(const std::string& url) {
  const FetchOutcome why = WhyUnreachable(HostOf(url));
  return why == FetchOutcomeNoNetwork ? why : FetchOutcomeNotResolved;
}

// What a fetch gives, however it came about.
struct Fetched {
  FetchReport report;
  std::vector<std::uint8_t> body;
};

Fetched AskService(const std::string& url, const HttpLimits& limits,
                   std::vector<std::string> headers) {
  headers.emplace_back("Accept:");  // which libcurl would send by itself
  const HttpFetch::Reply reply =
      ThreadConnection().Send({.url = url, .headers = std::move(headers)}, limits);
  const FetchReport report = {
      reply.outcome == HttpOutcome::NotResolved ? WhyNotResolved(url) : OutcomeOf(reply.outcome),
      reply.status,
      static_cast<std::int32_t>(reply.retryAfter.value_or(std::chrono::seconds(0)).count())};
  return reply.outcome == HttpOutcome::Answered
             ? Fetched{report, {reply.body.begin(), reply.body.end()}}
             : Fetched{report, {}};
}

Fetched AskHere(const LocalAnswers& answers, const std::string& url, const HttpLimits& limits,
                const std::vector<std::string>& headers) {
  if (limits.cancelled != nullptr && *limits.cancelled) {
    return {{.outcome = FetchOutcomeAbandoned}, {}};
  }
  try {
    const LocalAnswer answer = answers(url, headers);
    return {{FetchOutcomeAnswered, answer.httpStatus, answer.retryAfter},
            {answer.body.begin(), answer.body.end()}};
  } catch (...) {
    return {{.outcome = FetchOutcomeBrokeOff}, {}};
  }
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
    const LocalAnswers answers = GetLocalAnswers();
    Fetched fetched = answers ? AskHere(answers, url, limits, headers)
                              : AskService(url, limits, std::move(headers));
    if (report != nullptr) {
      *report = fetched.report;
    }
    return std::move(fetched.body);
  } catch (const std::bad_alloc&) {
    // No memory is one more failed fetch: the caller keeps the user's text.
  }
  return {};
}

}  // namespace postwright
