#include "service/upstream/HttpClient.h"

#include <utility>

namespace postwright::service {
namespace {

constexpr int kTooManyRequests = 429;

// A server that closes without a word has failed whatever it was asked for.
FaultKind KindOf(const HttpFetch::Reply& reply) {
  return reply.requests == 0 || reply.outcome == HttpOutcome::NoAnswer ? FaultKind::Unreachable
         : reply.outcome == HttpOutcome::TimedOut                      ? FaultKind::TimedOut
                                                                       : FaultKind::BadReply;
}

}  // namespace

HttpClient::HttpClient(const Limits& limits) : limits_(limits) {}

HttpClient::~HttpClient() = default;

std::variant<HttpAnswer, HttpClient::Failure> HttpClient::Send(const HttpCall& call) {
  HttpFetch::Request request{.url = call.url, .headers = call.headers, .takesPacked = true};
  request.headers.emplace_back("User-Agent: postwright-verifyd");
  if (!call.body.empty()) {
    request.body = call.body;
  }
  HttpLimits limits;
  limits.connect = limits_.connect;
  limits.whole = limits_.whole;
  limits.bytes = limits_.bytes;
  limits.cancelled = &isStopped_;
  std::unique_ptr<HttpFetch> connection = TakeConnection();
  HttpFetch::Reply reply = connection->Send(request, limits);
  PutBack(std::move(connection));
  const auto calls = static_cast<size_t>(reply.requests);  // two where a kept connection had ended
  if (reply.outcome == HttpOutcome::Answered) {
    return HttpAnswer{reply.status, std::move(reply.body), reply.retryAfter, calls};
  }
  return Failure{KindOf(reply), calls, std::move(reply.detail)};
}

std::unique_ptr<HttpFetch> HttpClient::TakeConnection() {
  {
    const std::lock_guard lock(mutex_);
    if (!idle_.empty()) {
      std::unique_ptr<HttpFetch> connection = std::move(idle_.back());
      idle_.pop_back();
      return connection;
    }
  }
  return std::make_unique<HttpFetch>();
}

void HttpClient::PutBack(std::unique_ptr<HttpFetch> connection) {
  const std::lock_guard lock(mutex_);
  idle_.push_back(std::move(connection));
}

UpstreamFault FaultOfStatus(const HttpAnswer& answer) {
  const int status = answer.status;
  const FaultKind kind = status == 401                ? FaultKind::Unauthorised
                         : status == 403              ? FaultKind::Forbidden
                         : status == kTooManyRequests ? FaultKind::Quota
                         : status >= 500              ? FaultKind::ServerError
                         : status >= 400              ? FaultKind::Refused
                                                      : FaultKind::BadReply;
  return {kind, answer.retryAfter, "HTTP " + std::to_string(status)};
}

}  // namespace postwright::service
