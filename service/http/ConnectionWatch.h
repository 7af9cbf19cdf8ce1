#ifndef POSTWRIGHT_SERVICE_HTTP_CONNECTIONWATCH_H_
#define POSTWRIGHT_SERVICE_HTTP_CONNECTIONWATCH_H_

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <optional>
#include <thread>
#include <unordered_map>

namespace postwright::service {

// Knows the open connections of a server: ends those that take too long over one request, however
// busily they trickle bytes, and tells at the end which ones have begun something.
//
// The server reports each connection's socket when it is opened, when a request has been read, when
// it is answered and, while the socket is still open, before it is closed. A request's length is in
// bytes as they were sent; nullopt where they are not known, which asks the system. Any thread may
// call any operation; those of each request take no lock.
class ConnectionWatch {
 public:
  class Connection;

  // A connection has `patience` for each request, counted from its opening or its last answer.
  explicit ConnectionWatch(std::chrono::milliseconds patience);
  ~ConnectionWatch();
  ConnectionWatch(const ConnectionWatch&) = delete;
  ConnectionWatch& operator=(const ConnectionWatch&) = delete;

  // What it returns stays until Closed. A socket that is opened twice counts once.
  Connection& Opened(int socket);
  void RequestRead(Connection& connection, std::optional<size_t> length);
  void Answered(Connection& connection);
  void Closed(int socket);

  // Ends the reading side of every connection that has sent nothing since its last request.
  // Requests under way, half-sent ones among them, stay.
  void EndIdle();

  size_t OpenCount() const;

 private:
  using Clock = std::chrono::steady_clock;

  void EndLate();

  const std::chrono::milliseconds patience_;
  mutable std::mutex mutex_;
  std::condition_variable stopping_;
  bool stop_ = false;
  std::unordered_map<int, Connection> connections_;
  std::thread thread_;
};

class ConnectionWatch::Connection {
 public:
  explicit Connection(int socket) : socket_(socket) {}

 private:
  friend class ConnectionWatch;

  const int socket_;
  std::atomic<Clock::time_point> deadline_;
  std::atomic<uint64_t> bytesRead_ = 0;  // of requests that were read to their end
  std::atomic<bool> answering_ = false;
};

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_HTTP_CONNECTIONWATCH_H_
