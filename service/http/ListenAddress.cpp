#include "service/http/ListenAddress.h"

#include <arpa/inet.h>
#include <netdb.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <cstring>
#include <memory>

#include "common/Loopback.h"

namespace postwright::service {
namespace {

constexpr unsigned kHighestPort = 65535;

bool IsPort(std::string_view text) {
  unsigned port = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), port);
  return error == std::errc() && end == text.data() + text.size() && port <= kHighestPort;
}

}  // namespace

ListenAddress ListenAddress::Parse(std::string_view text) {
  const size_t colon = text.rfind(':');
  std::string_view host = text.substr(0, colon == std::string_view::npos ? 0 : colon);
  const bool bracketed = host.starts_with('[') && host.ends_with(']');
  if (bracketed) {
    host = host.substr(1, host.size() - 2);
  }
  const bool bareIpv6 = !bracketed && host.find(':') != std::string_view::npos;
  if (host.empty() || bareIpv6 || !IsPort(text.substr(colon + 1))) {
    throw ListenError("'" + std::string(text) +
                      "' is not ADDRESS:PORT, as in 127.0.0.1:8470 or [::1]:8470");
  }
  ListenAddress address;
  address.host_ = host;
  address.port_ = text.substr(colon + 1);
  return address;
}

bool ListenAddress::IsLoopback() const {
  return postwright::IsLoopback(host_);
}

int ListenAddress::Open() const {
  addrinfo hints = {};
  hints.ai_socktype = SOCK_STREAM;
  hints.ai_flags = AI_PASSIVE | AI_NUMERICSERV;
  addrinfo* found = nullptr;
  const int failure = getaddrinfo(host_.c_str(), port_.c_str(), &hints, &found);
  if (failure != 0) {
    throw ListenError("cannot listen on " + host_ + ": " + gai_strerror(failure));
  }
  const std::unique_ptr<addrinfo, void (*)(addrinfo*)> owner(found, freeaddrinfo);
  const int socket = ::socket(found->ai_family, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
  const int on = 1;
  if (socket >= 0 && setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &on, sizeof(on)) == 0 &&
      bind(socket, found->ai_addr, found->ai_addrlen) == 0 && listen(socket, kBacklog) == 0) {
    return socket;
  }
  const std::string reason =
      std::strerror(errno) + std::string(errno == EADDRINUSE ? "; port 0 takes a free one" : "");
  if (socket >= 0) {
    close(socket);
  }
  throw ListenError("cannot listen on " + host_ + ":" + port_ + ": " + reason);
}

std::string ListenAddress::OfSocket(int socket) {
  sockaddr_storage storage = {};
  socklen_t length = sizeof(storage);
  auto* const address = reinterpret_cast<sockaddr*>(&storage);
  char port[NI_MAXSERV] = "";
  if (getsockname(socket, address, &length) != 0 ||
      getnameinfo(address, length, nullptr, 0, port, sizeof(port), NI_NUMERICSERV) != 0) {
    return "?";
  }
  const std::string host = HostOf(address);
  return (address->sa_family == AF_INET6 ? "[" + host + "]" : host) + ":" + port;
}

std::string ListenAddress::ReadHost(const std::string& text) {
  sockaddr_in ipv4 = {};
  if (inet_pton(ipv4.sin_family = AF_INET, text.c_str(), &ipv4.sin_addr) == 1) {
    return HostOf(reinterpret_cast<const sockaddr*>(&ipv4));
  }
  sockaddr_in6 ipv6 = {};
  if (inet_pton(ipv6.sin6_family = AF_INET6, text.c_str(), &ipv6.sin6_addr) == 1) {
    return HostOf(reinterpret_cast<const sockaddr*>(&ipv6));
  }
  return {};
}

std::string ListenAddress::HostOf(const sockaddr* address) {
  char host[INET6_ADDRSTRLEN] = "";
  const void* bytes = nullptr;
  int family = address != nullptr ? address->sa_family : AF_UNSPEC;
  if (family == AF_INET) {
    bytes = &reinterpret_cast<const sockaddr_in*>(address)->sin_addr;
  } else if (family == AF_INET6) {
    const in6_addr& ipv6 = reinterpret_cast<const sockaddr_in6*>(address)->sin6_addr;
    const bool isMapped = IN6_IS_ADDR_V4MAPPED(&ipv6) != 0;
    constexpr size_t kMappedPrefix = 12;
    bytes = ipv6.s6_addr + (isMapped ? kMappedPrefix : 0);
    family = isMapped ? AF_INET : AF_INET6;
  }
  const bool shown = bytes != nullptr && inet_ntop(family, bytes, host, sizeof(host)) != nullptr;
  return shown ? host : "?";
}

}  // namespace postwright::service
