#ifndef POSTWRIGHT_SERVICE_HTTP_HTTPSERVER_H_
#define POSTWRIGHT_SERVICE_HTTP_HTTPSERVER_H_

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "service/http/HttpMessage.h"
#include "service/http/ListenAddress.h"
#include "service/http/RequestLog.h"

namespace postwright::service {

// An HTTP/1.1 server on one address, whose threads are its own: one epoll loop a thread. A handler
// that answers at once is computed in place; one that waits for something lets its thread go and
// answers later, from wherever it likes.
//
//   HttpServer server(ListenAddress::Parse("127.0.0.1:0"), {}, handler, log);
//   …
//   server.Drain(std::chrono::seconds(5));
//
// Construction opens the socket, throws ListenError where that fails, and serves at once. The
// destructor breaks off what is under way; answers that come later go nowhere. One line a request
// goes to the log, which is borrowed.
//
// A new connection beyond the limits takes the place of one that waits for a head
// (ConnectionWatch); loopback and the proxies are not held to the limit of an address. A request
// that two readers could understand in two ways is refused (HeadCheck).
class HttpServer {
 public:
  struct Limits {
    unsigned threads = 0;        // 0: as many as processors, at least 2, at most 8
    unsigned connections = 768;  // in all; a process has 1,024 descriptors if not told otherwise
    unsigned connectionsPerAddress = 512;   // of one client address that is not trusted
    std::vector<std::string> proxies = {};  // addresses, as HttpRequest::client, that are trusted
    size_t bytesPerConnection = 16 * 1024;  // request line and headers together must fit
    size_t bodyBytes = 64 * 1024;
    // The same for a request whose head alone is known, where that may be more; empty for none.
    std::function<size_t(const HttpRequest&)> roomierBody = {};
    std::chrono::seconds idle{30};  // without a byte
    std::chrono::milliseconds yielding{10 *
                                       1000};      // without a head, until others may have its room
    std::chrono::milliseconds request{60 * 1000};  // for one request, however it trickles in
    bool quiet = false;                            // no line of a request with status 200
  };

  // Called from several threads at once, which serve other connections too: it must not wait. The
  // request is valid as long as the call. What it throws becomes a reply with status 500.
  using Handler = std::function<void(const HttpRequest&, const Respond&)>;

  HttpServer(const ListenAddress& address, const Limits& limits, Handler handler, RequestLog& log);
  ~HttpServer();
  HttpServer(const HttpServer&) = delete;
  HttpServer& operator=(const HttpServer&) = delete;

  // Returns ADDRESS:PORT with the port that was really taken.
  const std::string& Address() const;

  // Stops taking connections and waits until every request that has begun is answered, for `limit`
  // at most; one whose head is not whole has a second for the rest of it. Then nothing is served
  // any more.
  void Drain(std::chrono::milliseconds limit);

 private:
  class Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_HTTP_HTTPSERVER_H_
