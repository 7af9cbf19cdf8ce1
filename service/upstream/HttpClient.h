#ifndef POSTWRIGHT_SERVICE_UPSTREAM_HTTPCLIENT_H_
#define POSTWRIGHT_SERVICE_UPSTREAM_HTTPCLIENT_H_

#include <atomic>
#include <chrono>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "common/HttpFetch.h"
#include "service/upstream/Upstream.h"

namespace postwright::service {

struct HttpCall {
  std::string url;
  std::vector<std::string> headers;  // "Accept: application/json"
  std::string body = {};             // POST where there is one, else GET
};

struct HttpAnswer {
  int status = 0;
  std::string body;
  std::optional<std::chrono::seconds> retryAfter;  // the header of that name, either form of it
  size_t calls = 1;                                // that the server may have seen
};

// Asks an HTTP or HTTPS server, within the limits of HttpFetch. Redirects are not followed, since a
// call's headers are meant for one host; compressed answers are unpacked.
//
//   HttpClient client({});
//   const auto answer = client.Send({"https://apis.usps.com/…", {"Authorization: Bearer …"}});
//
// Connections are kept between calls. Any number of threads at once.
class HttpClient {
 public:
  struct Limits {
    std::chrono::milliseconds connect = std::chrono::seconds(5);
    std::chrono::milliseconds whole = std::chrono::seconds(15);  // from the call to the last byte
    size_t bytes = 256 * 1024;                                   // of all that comes, unpacked
  };

  // No answer at all.
  struct Failure {
    FaultKind kind = FaultKind::Unreachable;  // or TimedOut, BadReply
    size_t calls = 0;                         // that the server may have seen
    std::string detail;
  };

  explicit HttpClient(const Limits& limits);
  ~HttpClient();
  HttpClient(const HttpClient&) = delete;
  HttpClient& operator=(const HttpClient&) = delete;

  // Waits for the whole answer, whatever its status.
  std::variant<HttpAnswer, Failure> Send(const HttpCall& call);

  // Ends every call within a second, those to come as well.
  void Stop() { isStopped_ = true; }

 private:
  std::unique_ptr<HttpFetch> TakeConnection();
  void PutBack(std::unique_ptr<HttpFetch> connection);

  const Limits limits_;
  std::atomic<bool> isStopped_ = false;
  std::mutex mutex_;
  std::vector<std::unique_ptr<HttpFetch>> idle_;
};

// Returns what an HTTP status other than 200 means by itself, with `answer`'s time to ask again.
UpstreamFault FaultOfStatus(const HttpAnswer& answer);

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_UPSTREAM_HTTPCLIENT_H_
