#ifndef POSTWRIGHT_TESTS_SUPPORT_LOOPBACKSERVER_H_
#define POSTWRIGHT_TESTS_SUPPORT_LOOPBACKSERVER_H_

#include <atomic>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace postwright {

// A server on a free loopback port that sends given bytes, however little they are HTTP.
//
//   LoopbackServer server([](const std::string&) { return LoopbackServer::Answer{"HTTP/1.1 ..."};
//   }); FetchUrl("http://" + server.GetEndpoint() + "/");
//
// Serves any number of connections, from one thread of its own, until it goes out of scope.
class LoopbackServer {
 public:
  struct Answer {
    std::string bytes;       // empty and not closed: silence
    bool close = false;      // behind the bytes
    std::string again = {};  // sent behind them, again and again, for as long as the client reads
  };
  // Called in the server's thread with a whole request, head to blank line.
  using Script = std::function<Answer(const std::string& request)>;

  explicit LoopbackServer(Script script);
  explicit LoopbackServer(Answer answer)
      : LoopbackServer([answer = std::move(answer)](const std::string&) { return answer; }) {}
  ~LoopbackServer();

  std::string GetEndpoint() const;  // "127.0.0.1:PORT"
  std::vector<std::string> GetRequests() const;
  int CountConnections() const { return connections_; }

 private:
  void Run();
  bool Read(int connection, std::string* received);
  bool Reply(int connection, const std::string& request);

  Script script_;
  int listener_;
  std::atomic<int> connections_ = 0;
  mutable std::mutex mutex_;
  std::vector<std::string> requests_;  // under mutex_
  std::thread thread_;
};

}  // namespace postwright

#endif  // POSTWRIGHT_TESTS_SUPPORT_LOOPBACKSERVER_H_
