#include "tests/service/Socket.h"

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace postwright::service {

Socket::Socket(const std::string& address, const char* from)
    : socket_(socket(AF_INET, SOCK_STREAM, 0)) {
  const timeval patience = {10, 0};
  setsockopt(socket_, SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof(patience));
  setsockopt(socket_, SOL_SOCKET, SO_SNDTIMEO, &patience, sizeof(patience));
  sockaddr_in own = {};
  own.sin_family = AF_INET;
  inet_pton(AF_INET, from, &own.sin_addr);
  bind(socket_, reinterpret_cast<sockaddr*>(&own), sizeof(own));
  sockaddr_in peer = {};
  peer.sin_family = AF_INET;
  const size_t colon = address.find(':');
  inet_pton(AF_INET, address.substr(0, colon).c_str(), &peer.sin_addr);
  peer.sin_port = htons(static_cast<uint16_t>(std::stoi(address.substr(colon + 1))));
  if (connect(socket_, reinterpret_cast<sockaddr*>(&peer), sizeof(peer)) != 0) {
    close(std::exchange(socket_, -1));
  }
}

Socket::~Socket() {
  if (IsOpen()) {
    close(socket_);
  }
}

Socket::Socket(Socket&& other) noexcept : socket_(std::exchange(other.socket_, -1)) {}

void Socket::Reset() {
  const linger none = {1, 0};
  setsockopt(socket_, SOL_SOCKET, SO_LINGER, &none, sizeof(none));
  close(std::exchange(socket_, -1));
}

size_t Socket::Send(const std::string& bytes) {
  size_t sent = 0;
  while (sent < bytes.size()) {
    const ssize_t now = send(socket_, bytes.data() + sent, bytes.size() - sent, MSG_NOSIGNAL);
    if (now <= 0) {
      break;
    }
    sent += static_cast<size_t>(now);
  }
  return sent;
}

std::string Socket::ReceiveResponse() {
  std::string bytes;
  size_t wanted = std::string::npos;
  while (bytes.size() < wanted && Receive(bytes)) {
    const size_t end = bytes.find("\r\n\r\n");
    const size_t length = bytes.find("Content-Length: ");
    if (end != std::string::npos && length < end) {
      wanted = end + 4 + std::strtoul(bytes.c_str() + length + 16, nullptr, 10);
    }
  }
  return bytes;
}

std::string Socket::ReceiveAll() {
  std::string bytes;
  while (Receive(bytes)) {
  }
  return errno == EAGAIN ? "(silence)" : bytes;
}

bool Socket::Receive(std::string& bytes) {
  char buffer[4096];
  errno = 0;
  const ssize_t received = recv(socket_, buffer, sizeof(buffer), 0);
  bytes.append(buffer, static_cast<size_t>(std::max<ssize_t>(received, 0)));
  return received > 0;
}

std::string AskForMain(const std::string& line) {
  std::string escaped;
  for (const char c : line) {
    escaped += c == ' ' ? '+' : c;
  }
  return "GET /ShippingAPI.dll?API=Verify&XML=%3CAddressValidateRequest+USERID='1'%3E%3CAddress%3E"
         "%3CAddress2%3E" +
         escaped +
         "%3C/Address2%3E%3CZip5%3E78701%3C/Zip5%3E%3C/Address%3E%3C/AddressValidateRequest%3E "
         "HTTP/1.1\r\nHost: localhost\r\n\r\n";
}

}  // namespace postwright::service
