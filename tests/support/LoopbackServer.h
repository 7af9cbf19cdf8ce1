#ifndef POSTWRIGHT_TESTS_SUPPORT_LOOPBACKSERVER_H_
#define POSTWRIGHT_TESTS_SUPPORT_LOOPBACKSERVER_H_

#include <chrono>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace postwright {

// A server on a free loopback port that sends given bytes, whether they are HTTP or not.
//
//   const LoopbackServer server(LoopbackServer::Page("<R/>"));
//   FetchUrl("http://" + server.GetEndpoint() + "/");
//
// Serves any number of connections, each from a thread of its own, until it goes out of scope.
class LoopbackServer {
 public:
  struct Answer {
    std::string bytes;       // empty, and not closed: silence
    bool close = false;      // after the bytes
    std::string again = {};  // sent after them repeatedly, for as long as the client reads
    std::chrono::milliseconds pause{0};  // before each time
  };
  // Called in the connection's thread with a complete request, head and body.
  using Script = std::function<Answer(const std::string& request)>;

  // The answer of a well-behaved server.
  static Answer Page(const std::string& body);

  explicit LoopbackServer(Script script);
  explicit LoopbackServer(const Answer& answer)
      : LoopbackServer([answer](const std::string&) { return answer; }) {}
  ~LoopbackServer();

  std::string GetEndpoint() const;  // "127.0.0.1:PORT"
  std::vector<std::string> GetRequests() const;
  std::size_t CountConnections() const;

 private:
  void Accept();
  void Serve(int connection);

  const Script script_;
  const int listener_;
  mutable std::mutex mutex_;
  std::vector<std::string> requests_;  // under mutex_, as is all below
  std::vector<int> connections_;
  std::vector<std::thread> servers_;
  std::thread acceptor_;
};

}  // namespace postwright

#endif  // POSTWRIGHT_TESTS_SUPPORT_LOOPBACKSERVER_H_
