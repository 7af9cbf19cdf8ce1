#include <postwright/NetworkReachability.h>

#include "common/FileDescriptor.h"

#include <netdb.h>
#include <sys/socket.h>

#include <algorithm>
#include <memory>

namespace postwright {

namespace {

struct AddressListDeleter {
  void operator()(addrinfo* list) const { freeaddrinfo(list); }
};
using AddressList = std::unique_ptr<addrinfo, AddressListDeleter>;

// An IPv6 address has colons of its own: only in brackets can a port stand behind it.
std::string WithoutPort(const std::string& host) {
  if (host.starts_with('[')) {
    return host.substr(1, host.find(']') - 1);
  }
  const bool hasPort = std::count(host.begin(), host.end(), ':') == 1;
  return hasPort ? host.substr(0, host.find(':')) : host;
}

AddressList Resolve(const std::string& name) {
  addrinfo hints = {};
  hints.ai_family = AF_UNSPEC;
  hints.ai_socktype = SOCK_DGRAM;
  addrinfo* list = nullptr;
  const bool resolved = getaddrinfo(name.c_str(), "80", &hints, &list) == 0;
  return AddressList(resolved ? list : nullptr);
}

// Connecting a datagram socket sends nothing: the kernel looks the route up and keeps it.
bool HasRoute(const addrinfo& address) {
  const FileDescriptor handle(socket(address.ai_family, SOCK_DGRAM | SOCK_CLOEXEC, 0));
  return handle >= 0 && connect(handle, address.ai_addr, address.ai_addrlen) == 0;
}

}  // namespace

bool IsHostReachable(const std::string& host) {
  const AddressList list = Resolve(WithoutPort(host));
  for (const addrinfo* address = list.get(); address != nullptr; address = address->ai_next) {
    if (HasRoute(*address)) {
      return true;
    }
  }
  return false;
}

}  // namespace postwright
