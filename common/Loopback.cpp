#include "common/Loopback.h"

#include <arpa/inet.h>

#include <string>

#include "common/SmallText.h"

namespace postwright {
namespace {

constexpr unsigned char kFirstByte = 127;

}  // namespace

bool IsLoopback(std::string_view host) {
  if (EqualsIgnoringCase(host, "localhost")) {
    return true;
  }
  if (host.starts_with('[') && host.ends_with(']')) {
    host = host.substr(1, host.size() - 2);
  }
  const std::string text(host);
  if (in_addr address = {}; inet_pton(AF_INET, text.c_str(), &address) == 1) {
    return ntohl(address.s_addr) >> 24 == kFirstByte;
  }
  in6_addr address = {};
  return inet_pton(AF_INET6, text.c_str(), &address) == 1 &&
         (IN6_IS_ADDR_LOOPBACK(&address) ||
          (IN6_IS_ADDR_V4MAPPED(&address) && address.s6_addr[12] == kFirstByte));
}

}  // namespace postwright
