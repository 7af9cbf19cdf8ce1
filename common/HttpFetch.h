#ifndef POSTWRIGHT_COMMON_HTTPFETCH_H_
#define POSTWRIGHT_COMMON_HTTPFETCH_H_

#include <atomic>
#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace postwright {

// What ends a call. Times are from the call on; a time of zero means no limit.
struct HttpLimits {
  std::chrono::milliseconds connect = std::chrono::seconds(30);  // a host resolved and connected to
  std::chrono::seconds silence = std::chrono::seconds(60);       // with less than 1 byte a second
  std::chrono::milliseconds whole = std::chrono::minutes(2);     // to the last byte
  // Everything that the other side sends: heads, interim answers, redirects, chunk extensions and
  // trailers count. A body counts once more as it is unpacked, against the same bound.
  std::size_t bytes = std::size_t{16} << 20U;
  // One head with the interim answers before it and the trailers after it.
  std::size_t headBytes = std::size_t{64} << 10U;
  long redirects = 0;  // followed, to http and https only; 0 gives the redirect itself
  // Null, or set from any thread to end the call within about a second. Outlives the call.
  const std::atomic<bool>* cancelled = nullptr;
};

enum class HttpOutcome {
  Answered,     // whole, whatever its status
  BadUrl,       // nothing was tried
  NotResolved,  // the host has no address
  Refused,      // no connection, or none that may be trusted
  TimedOut,     // one of the three times is over
  NoAnswer,     // the connection ended before the first byte
  TooLong,      // more came than may
  BrokeOff,     // the connection was closed within the answer
  BadAnswer,    // not HTTP, or a coding that is not taken
  Cancelled
};

// The head of an answer, interim answers and trailers apart.
struct HttpHead {
  int status = 0;
  std::vector<std::pair<std::string, std::string>> fields;  // as they came

  // Returns the value of the first field of that name, in any case; empty where there is none.
  std::string_view Find(std::string_view name) const;
};

// Takes a piece of a body as it comes, which is not kept then. Returns whether the call may go on.
using HttpSink = std::function<bool(const HttpHead& head, std::string_view bytes)>;

// Asks HTTP/1.1 servers, one call at a time, and keeps the connection between calls. Certificates
// are checked; the proxy is that of the environment (http_proxy, https_proxy, no_proxy). The one
// transfer coding taken is chunked.
//
//   HttpFetch http;
//   const HttpFetch::Reply reply = http.Send({"https://example.com/x", {"Accept: text/xml"}}, {});
//   if (reply.outcome == HttpOutcome::Answered) Read(reply.body);
//
// One thread at a time. A process that forks leaves the object to its parent: the child makes its
// own, and may destroy the other.
class HttpFetch {
 public:
  struct Request {
    std::string url;                        // absolute, http or https, in ASCII or UTF-8
    std::vector<std::string> headers = {};  // "Accept: text/xml"; "Accept:" leaves out libcurl's
    std::optional<std::string> body = {};   // POST where there is one, else GET
    bool takesPacked = false;               // asks for a compressed answer, and unpacks it
    HttpSink sink = {};                     // empty: the body is in the reply
  };

  struct Reply {
    HttpOutcome outcome = HttpOutcome::BadUrl;
    std::string detail;  // for a log; empty where Answered
    int requests = 0;    // sent: 0 means that the server saw nothing
    int status = 0;      // the rest only where Answered
    HttpHead head;
    std::string body;                                // byte for byte
    std::optional<std::chrono::seconds> retryAfter;  // the header, either form of it; a day at most
  };

  // Throws std::bad_alloc where libcurl cannot be had.
  HttpFetch();
  ~HttpFetch();
  HttpFetch(const HttpFetch&) = delete;
  HttpFetch& operator=(const HttpFetch&) = delete;

  // False in a child of the process that made it, whose socket still serves the parent.
  bool IsOurs() const;

  // Blocks until the whole answer is there or a limit ends the call. Throws std::bad_alloc alone,
  // and what the sink does, once the call is over.
  Reply Send(const Request& request, const HttpLimits& limits);

 private:
  class Handle;
  std::unique_ptr<Handle> handle_;
};

}  // namespace postwright

#endif  // POSTWRIGHT_COMMON_HTTPFETCH_H_
