#include "tests/support/LoopbackServer.h"

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

#include <utility>

namespace postwright {

namespace {

bool SendAll(int connection, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t sent = send(connection, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (sent < 0) {
      return false;
    }
    bytes.remove_prefix(static_cast<std::size_t>(sent));
  }
  return true;
}

// Says whether a request is complete: its head, and the body that it announces.
bool IsWhole(const std::string& request) {
  const std::string length = "\r\nContent-Length: ";
  const size_t end = request.find("\r\n\r\n");
  const size_t at = request.find(length);
  return end != std::string::npos &&
         request.size() >=
             end + 4 + (at < end ? std::stoul(request.substr(at + length.size())) : 0);
}

}  // namespace

LoopbackServer::Answer LoopbackServer::Page(const std::string& body) {
  return {"HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body};
}

LoopbackServer::LoopbackServer(Script script)
    : script_(std::move(script)), listener_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
  sockaddr_in address = {};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  bind(listener_, reinterpret_cast<const sockaddr*>(&address), sizeof address);
  listen(listener_, 16);
  acceptor_ = std::thread(&LoopbackServer::Accept, this);
}

LoopbackServer::~LoopbackServer() {
  shutdown(listener_, SHUT_RDWR);
  acceptor_.join();
  for (std::size_t i = 0; i < servers_.size(); ++i) {
    shutdown(connections_[i], SHUT_RDWR);
    servers_[i].join();
    close(connections_[i]);
  }
  close(listener_);
}

std::string LoopbackServer::GetEndpoint() const {
  sockaddr_in address = {};
  socklen_t size = sizeof address;
  getsockname(listener_, reinterpret_cast<sockaddr*>(&address), &size);
  return "127.0.0.1:" + std::to_string(ntohs(address.sin_port));
}

std::vector<std::string> LoopbackServer::GetRequests() const {
  const std::lock_guard lock(mutex_);
  return requests_;
}

std::size_t LoopbackServer::CountConnections() const {
  const std::lock_guard lock(mutex_);
  return connections_.size();
}

void LoopbackServer::Accept() {
  int connection;
  while ((connection = accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC)) >= 0) {
    const std::lock_guard lock(mutex_);
    connections_.push_back(connection);
    servers_.emplace_back(&LoopbackServer::Serve, this, connection);
  }
}

void LoopbackServer::Serve(int connection) {
  std::string request;
  char buffer[4096];
  ssize_t count;
  while ((count = recv(connection, buffer, sizeof buffer, 0)) > 0) {
    request.append(buffer, static_cast<std::size_t>(count));
    if (!IsWhole(request)) {
      continue;
    }
    const Answer answer = script_(request);
    {
      const std::lock_guard lock(mutex_);
      requests_.push_back(std::exchange(request, {}));
    }
    bool open = SendAll(connection, answer.bytes) && !answer.close;
    while (open && !answer.again.empty()) {
      std::this_thread::sleep_for(answer.pause);
      open = SendAll(connection, answer.again);
    }
    if (!open) {
      break;
    }
  }
  shutdown(connection, SHUT_RDWR);
}

}  // namespace postwright
