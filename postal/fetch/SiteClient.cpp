#include "postal/fetch/SiteClient.h"

#include <algorithm>
#include <utility>

#include "common/Loopback.h"
#include "common/SmallText.h"
#include "common/UrlParts.h"
#include "postal/fetch/FetchError.h"

namespace postwright::postal {
namespace {

constexpr size_t kLongestPage = size_t{64} << 20U;
constexpr int kMostRedirects = 5;
constexpr std::chrono::hours kLongestPatience(1);  // with a time that a server asks for

bool IsRedirect(int status) {
  return status == 301 || status == 302 || status == 303 || status == 307 || status == 308;
}

// A server under load, or what comes before it, says 403 too.
bool MayPass(const HttpFetch::Reply& reply) {
  switch (reply.outcome) {
    case HttpOutcome::Answered:
      return reply.status == 403 || reply.status == 408 || reply.status == 425 ||
             reply.status == 429 || reply.status >= 500;
    case HttpOutcome::BadUrl:
    case HttpOutcome::TooLong:
      return false;
    default:
      return true;
  }
}

std::string InWords(const HttpFetch::Reply& reply) {
  if (reply.outcome != HttpOutcome::Answered) {
    return reply.detail;
  }
  switch (reply.status) {
    case 401:
      return "the server wants a login: give --token-file (status 401)";
    case 403:
      return "the server turns us away (status 403)";
    case 404:
      return "the server has no such file (status 404)";
    default:
      return "the server answers with status " + std::to_string(reply.status);
  }
}

}  // namespace

std::string CheckOrigin(const std::string& origin) {
  const std::optional<UrlParts> url = SplitUrl(origin);
  if (!url || url->host.empty()) {
    return "'" + origin + "' is not a URL such as https://mirror.example.org/census";
  }
  if (!url->isPlain) {
    return "'" + origin + "' has a user, a query or a fragment";
  }
  return url->scheme == "https" || (url->scheme == "http" && IsLoopback(url->host))
             ? ""
             : "'" + origin + "' is not https; http is for this machine's own loopback alone";
}

SiteClient::SiteClient(Site site, const FetchManners& manners)
    : site_(std::move(site)), manners_(manners) {}

bool SiteClient::MayAsk(const std::string& url) const {
  const std::optional<UrlParts> asked = SplitUrl(url);
  const std::optional<UrlParts> origin = SplitUrl(site_.origin);
  if (!asked || !origin || (asked->scheme != "https" && asked->scheme != origin->scheme)) {
    return false;
  }
  const std::string& host = asked->host;
  return EqualsIgnoringCase(host, origin->host) ||
         std::any_of(site_.hosts.begin(), site_.hosts.end(), [&host](const std::string& named) {
           return EqualsIgnoringCase(host, named) ||
                  (named.starts_with('.') && host.size() > named.size() &&
                   EqualsIgnoringCase(host.substr(host.size() - named.size()), named));
         });
}

HttpFetch::Request SiteClient::RequestFor(const std::string& url,
                                          const std::vector<std::string>& headers,
                                          const HttpSink& sink) const {
  HttpFetch::Request request{url, headers};
  request.headers.emplace_back("User-Agent: postwright-base");
  if (!site_.token.empty() && url.starts_with(site_.origin + "/")) {
    request.headers.push_back("Authorization: Bearer " + site_.token);
  }
  if (sink) {
    request.sink = [&sink](const HttpHead& head, std::string_view bytes) {
      return IsRedirect(head.status) || sink(head, bytes);
    };
  }
  return request;
}

HttpFetch::Reply SiteClient::Ask(const std::string& url, std::vector<std::string> headers,
                                 size_t bytes, const HttpSink& sink) {
  if (std::exchange(hasAsked_, true)) {
    Pause(manners_.pause);
  }
  HttpLimits limits;
  limits.whole = std::chrono::milliseconds(0);  // a file of gigabytes takes its time
  limits.bytes = bytes;
  limits.cancelled = manners_.stop;
  std::string at = url;
  for (int redirects = 0;; ++redirects) {
    HttpFetch::Reply reply = http_.Send(RequestFor(at, headers, sink), limits);
    if (manners_.stop != nullptr && *manners_.stop) {
      throw FetchStopped();
    }
    const std::string_view location = reply.head.Find("Location");
    if (reply.outcome != HttpOutcome::Answered || !IsRedirect(reply.status) || location.empty()) {
      return reply;
    }
    const std::optional<std::string> next = ResolveUrl(at, std::string(location));
    if (!next || !MayAsk(*next) || redirects == kMostRedirects) {
      throw FetchError(at + ": sends us on to " + next.value_or(std::string(location)) +
                       ", which is not asked; if you trust that host, name it with --host");
    }
    at = *next;
  }
}

std::optional<std::string> SiteClient::Page(const std::string& path, Missing missing) {
  const std::string url = site_.origin + path;
  for (int failures = 0;;) {
    HttpFetch::Reply reply = Ask(url, {}, kLongestPage, {});
    if (reply.outcome == HttpOutcome::Answered && reply.status == 200) {
      return std::move(reply.body);
    }
    if (reply.status == 404 && missing == Missing::IsNone) {
      return std::nullopt;
    }
    WaitAfter(url, reply, failures);
  }
}

void SiteClient::WaitAfter(const std::string& url, const HttpFetch::Reply& reply, int& failures) {
  if (!MayPass(reply)) {
    throw FetchError(url + ": " + InWords(reply));
  }
  WaitAfter(url, InWords(reply), reply.retryAfter.value_or(std::chrono::seconds(0)), failures);
}

void SiteClient::WaitAfter(const std::string& url, const std::string& trouble,
                           std::chrono::seconds asked, int& failures) {
  if (++failures >= manners_.tries) {
    throw FetchError(url + ": " + trouble + ", " + std::to_string(failures) +
                     " times. What was fetched is kept: the same command goes on later");
  }
  const auto grown = std::min(manners_.firstWait * (1 << (failures - 1)), manners_.longestWait);
  const auto time = std::max(grown, std::min<std::chrono::seconds>(asked, kLongestPatience));
  if (manners_.onTrouble) {
    manners_.onTrouble(trouble + "; asking again in " + std::to_string(time.count()) + " s");
  }
  Pause(time);
}

void SiteClient::Pause(std::chrono::seconds time) const {
  if (time.count() > 0 && !manners_.wait(time)) {
    throw FetchStopped();
  }
}

}  // namespace postwright::postal
