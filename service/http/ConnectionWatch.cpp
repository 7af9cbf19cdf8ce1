#include "service/http/ConnectionWatch.h"

#include <linux/tcp.h>  // the C library's own tcp_info ends before tcpi_bytes_received
#include <netinet/in.h>
#include <sys/socket.h>

#include <algorithm>

namespace postwright::service {
namespace {

// How many bytes the peer has sent so far, read or not; 0 where the system cannot tell.
uint64_t BytesReceived(int socket) {
  tcp_info info = {};
  socklen_t length = sizeof(info);
  return getsockopt(socket, IPPROTO_TCP, TCP_INFO, &info, &length) == 0 ? info.tcpi_bytes_received
                                                                        : 0;
}

}  // namespace

ConnectionWatch::ConnectionWatch(std::chrono::milliseconds patience)
    : patience_(patience), thread_(&ConnectionWatch::EndLate, this) {}

ConnectionWatch::~ConnectionWatch() {
  {
    const std::lock_guard lock(mutex_);
    stop_ = true;
  }
  stopping_.notify_one();
  thread_.join();
}

ConnectionWatch::Connection& ConnectionWatch::Opened(int socket) {
  const std::lock_guard lock(mutex_);
  Connection& connection = connections_.try_emplace(socket, socket).first->second;
  connection.deadline_ = Clock::now() + patience_;
  return connection;
}

void ConnectionWatch::RequestRead(Connection& connection, std::optional<size_t> length) {
  connection.answering_ = true;  // before what EndIdle compares
  // Asked before the answer leaves: a client may send its next request as soon as it has one.
  if (length) {
    connection.bytesRead_ += *length;
  } else {
    connection.bytesRead_ = BytesReceived(connection.socket_);
  }
}

void ConnectionWatch::Answered(Connection& connection) {
  connection.deadline_ = Clock::now() + patience_;
  connection.answering_ = false;
}

void ConnectionWatch::Closed(int socket) {
  const std::lock_guard lock(mutex_);
  connections_.erase(socket);
}

void ConnectionWatch::EndIdle() {
  const std::lock_guard lock(mutex_);
  for (const auto& [socket, connection] : connections_) {
    if (BytesReceived(socket) == connection.bytesRead_ && !connection.answering_) {
      shutdown(socket, SHUT_RD);
    }
  }
}

size_t ConnectionWatch::OpenCount() const {
  const std::lock_guard lock(mutex_);
  return connections_.size();
}

void ConnectionWatch::EndLate() {
  const auto interval = std::clamp<std::chrono::milliseconds>(
      patience_ / 8, std::chrono::milliseconds(10), std::chrono::seconds(1));
  std::unique_lock lock(mutex_);
  while (!stopping_.wait_for(lock, interval, [this] { return stop_; })) {
    const Clock::time_point now = Clock::now();
    for (const auto& [socket, connection] : connections_) {
      if (connection.deadline_.load() < now) {
        shutdown(socket, SHUT_RDWR);  // the server meets the end and closes
      }
    }
  }
}

}  // namespace postwright::service
