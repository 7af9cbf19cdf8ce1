#include "service/http/ConnectionWatch.h"

#include <sys/socket.h>

#include <algorithm>

namespace postwright::service {

ConnectionWatch::ConnectionWatch(const Limits& limits)
    : limits_(limits), thread_(&ConnectionWatch::EndLate, this) {}

ConnectionWatch::~ConnectionWatch() {
  {
    const std::lock_guard lock(mutex_);
    stop_ = true;
  }
  stopping_.notify_one();
  thread_.join();
}

ConnectionWatch::Connection& ConnectionWatch::Opened(int socket, const std::string& peer,
                                                     bool isTrusted) {
  const std::lock_guard lock(mutex_);
  const auto [at, isNew] = connections_.try_emplace(socket, socket, peer);
  Connection& connection = at->second;
  if (!isNew) {
    return connection;
  }
  ++count_;
  const bool isTooManyOfPeer = ++peers_[peer] > limits_.perPeer && !isTrusted;
  if (isTooManyOfPeer || count_ > limits_.connections) {
    Connection* const idle = FindIdle(connection, isTooManyOfPeer ? &peer : nullptr);
    End(idle != nullptr ? *idle : connection);
  }
  return connection;
}

void ConnectionWatch::HeadRead(Connection& connection) {
  connection.hasHead_ = true;
  connection.isKnown_ = true;
}

void ConnectionWatch::Answered(Connection& connection) {
  connection.waitsSince_ = Steady::now();
  connection.hasHead_ = false;
}

void ConnectionWatch::Closed(int socket) {
  const std::lock_guard lock(mutex_);
  const auto at = connections_.find(socket);
  if (at != connections_.end()) {
    Forget(at->second);
    connections_.erase(at);
  }
}

void ConnectionWatch::EndWaiting() {
  const std::lock_guard lock(mutex_);
  for (auto& [socket, connection] : connections_) {
    if (!connection.hasHead_) {
      shutdown(socket, SHUT_RD);
    }
  }
}

size_t ConnectionWatch::OpenCount() const {
  const std::lock_guard lock(mutex_);
  return connections_.size();
}

// A client that keeps its connection for the next request is spared for a while; one of which
// nothing is known is not.
ConnectionWatch::Connection* ConnectionWatch::FindIdle(const Connection& newcomer,
                                                       const std::string* peer) {
  const Steady::time_point settled = Steady::now() - limits_.idle;
  Connection* oldest = nullptr;
  for (auto& [socket, connection] : connections_) {
    const Steady::time_point since = connection.waitsSince_;
    const bool isIdle =
        !connection.isEnded_ && !connection.hasHead_ && (since <= settled || !connection.isKnown_);
    if (isIdle && &connection != &newcomer && (peer == nullptr || connection.peer_ == *peer) &&
        (oldest == nullptr || since < oldest->waitsSince_.load())) {
      oldest = &connection;
    }
  }
  return oldest;
}

// The server meets the end and closes. Until it has, nobody waits for the room.
void ConnectionWatch::End(Connection& connection) {
  shutdown(connection.socket_, SHUT_RDWR);
  Forget(connection);
}

void ConnectionWatch::Forget(Connection& connection) {
  if (connection.isEnded_) {
    return;
  }
  connection.isEnded_ = true;
  --count_;
  if (--peers_[connection.peer_] == 0) {
    peers_.erase(connection.peer_);
  }
}

void ConnectionWatch::EndLate() {
  const auto interval = std::clamp<std::chrono::milliseconds>(
      limits_.request / 8, std::chrono::milliseconds(10), std::chrono::seconds(1));
  std::unique_lock lock(mutex_);
  while (!stopping_.wait_for(lock, interval, [this] { return stop_; })) {
    const Steady::time_point latest = Steady::now() - limits_.request;
    for (auto& [socket, connection] : connections_) {
      if (!connection.isEnded_ && connection.waitsSince_.load() < latest) {
        End(connection);
      }
    }
  }
}

}  // namespace postwright::service
