#include "tests/support/LoopbackServer.h"

#include <arpa/inet.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

namespace postwright {

namespace {

int ListenOnFreePort() {
  sockaddr_in address = {};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  const int listener = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  if (bind(listener, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
      listen(listener, 16) != 0) {
    throw std::system_error(errno, std::generic_category(), "LoopbackServer");
  }
  return listener;
}

bool SendAll(int connection, const std::string& bytes) {
  for (size_t sent = 0; sent < bytes.size();) {
    const ssize_t count = send(connection, bytes.data() + sent, bytes.size() - sent, MSG_NOSIGNAL);
    if (count < 0) {
      return false;
    }
    sent += static_cast<size_t>(count);
  }
  return true;
}

}  // namespace

LoopbackServer::LoopbackServer(Script script)
    : script_(std::move(script)), listener_(ListenOnFreePort()), thread_([this] { Run(); }) {}

LoopbackServer::~LoopbackServer() {
  shutdown(listener_, SHUT_RDWR);  // wakes the thread, whose accept then fails
  thread_.join();
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

void LoopbackServer::Run() {
  std::vector<pollfd> polled = {{listener_, POLLIN, 0}};
  std::vector<std::string> received(1);  // beside polled, what has come in of a request
  for (bool running = true; running;) {
    poll(polled.data(), polled.size(), -1);
    for (size_t i = polled.size(); i-- > 1;) {
      if (polled[i].revents != 0 && !Read(polled[i].fd, &received[i])) {
        close(polled[i].fd);
        polled.erase(polled.begin() + static_cast<std::ptrdiff_t>(i));
        received.erase(received.begin() + static_cast<std::ptrdiff_t>(i));
      }
    }
    if (polled[0].revents != 0) {
      const int connection = accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
      running = connection >= 0;
      if (running) {
        ++connections_;
        polled.push_back({connection, POLLIN, 0});
        received.emplace_back();
      }
    }
  }
  for (size_t i = 1; i < polled.size(); ++i) {
    close(polled[i].fd);
  }
}

// False when the connection is at its end.
bool LoopbackServer::Read(int connection, std::string* received) {
  char buffer[4096];
  const ssize_t count = recv(connection, buffer, sizeof buffer, 0);
  if (count <= 0) {
    return false;
  }
  received->append(buffer, static_cast<size_t>(count));
  return !received->ends_with("\r\n\r\n") || Reply(connection, std::exchange(*received, {}));
}

bool LoopbackServer::Reply(int connection, const std::string& request) {
  {
    const std::lock_guard lock(mutex_);
    requests_.push_back(request);
  }
  const Answer answer = script_(request);
  bool open = SendAll(connection, answer.bytes) && !answer.close;
  while (open && !answer.again.empty()) {
    open = SendAll(connection, answer.again);
  }
  return open;
}

}  // namespace postwright
