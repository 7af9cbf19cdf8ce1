#ifndef POSTWRIGHT_SERVICE_HTTP_CONNECTIONWATCH_H_
#define POSTWRIGHT_SERVICE_HTTP_CONNECTIONWATCH_H_

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>
#include <unordered_map>
#include <utility>

namespace postwright::service {

// Knows the open connections of a server, and ends those that others need the room of: a new one
// beyond the limits takes the place of one that is idle, and a request that takes too long is cut
// off, however busily it trickles in.
//
// A connection waits for the whole head of a request, from its opening or from the end of its last
// request on. It is idle when it has waited for Limits::idle, or when it has never had one.
//
// The server reports each connection's socket when it is opened, when a head is whole, when the
// request is answered and, while the socket is still open, before it is closed. Any thread may call
// any operation; those of each request take no lock.
class ConnectionWatch {
 public:
  struct Limits {
    size_t connections = 768;  // in all
    size_t perPeer = 512;      // of one peer that is not trusted
    std::chrono::milliseconds idle = std::chrono::seconds(10);
    std::chrono::milliseconds request = std::chrono::seconds(60);  // from waiting to the answer
  };
  class Connection;

  explicit ConnectionWatch(const Limits& limits);
  ~ConnectionWatch();
  ConnectionWatch(const ConnectionWatch&) = delete;
  ConnectionWatch& operator=(const ConnectionWatch&) = delete;

  // What it returns stays until Closed. A socket that is opened twice counts once. Where it is one
  // too many, of all or of a `peer` that is not trusted, the connection that has been idle for the
  // longest is ended, among those of that peer in the latter case; if none is idle, the new one.
  Connection& Opened(int socket, const std::string& peer, bool isTrusted);
  void HeadRead(Connection& connection);
  void Answered(Connection& connection);
  void Closed(int socket);

  // Ends the reading side of every connection that waits for a head.
  void EndWaiting();

  size_t OpenCount() const;

 private:
  using Steady = std::chrono::steady_clock;

  // Under mutex_:
  Connection* FindIdle(const Connection& newcomer, const std::string* peer);
  void End(Connection& connection);
  void Forget(Connection& connection);

  void EndLate();

  const Limits limits_;
  mutable std::mutex mutex_;
  std::condition_variable stopping_;
  bool stop_ = false;
  std::unordered_map<int, Connection> connections_;
  // Of those that are not ended:
  size_t count_ = 0;
  std::unordered_map<std::string, size_t> peers_;
  std::thread thread_;
};

class ConnectionWatch::Connection {
 public:
  Connection(int socket, std::string peer) : socket_(socket), peer_(std::move(peer)) {}

 private:
  friend class ConnectionWatch;

  const int socket_;
  const std::string peer_;
  bool isEnded_ = false;  // under the watch's mutex
  std::atomic<Steady::time_point> waitsSince_ = Steady::now();
  std::atomic<bool> hasHead_ = false;  // of the request under way
  std::atomic<bool> isKnown_ = false;  // has had a whole head before
};

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_HTTP_CONNECTIONWATCH_H_
