#include <postwright/NetworkReachability.h>

#include "common/FileDescriptor.h"

#include <postwright/LocalAnswers.h>

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

// An IPv6 address has colons of its own: only in brackets can a port follow it.
std::string WithoutPort(const std::string& host) {
  if (host.starts_with('[')) {
    return host.substr(1, host.find(']') - 1);
  }
  const bool hasPort = std::count(host.begin(), host.end(), ':') == 1;
  return hasPort ? host.substr(0, host.find(':')) : host;
}

// Puts the addresses into `found`. Returns 0 or one of the resolver's EAI_ numbers.
int Resolve(const std::string& name, AddressList& found) {
  addrinfo hints = {};
  hints.ai_family = AF_UNSPEC;
  hints.ai_socktype = SOCK_DGRAM;
  addrinfo* list = nullptr;
  const int fault = getaddrinfo(name.c_str(), "80", &hints, &list);
  found.reset(fault == 0 ? list : nullptr);
  return fault;
}

// Connecting a datagram socket sends nothing: the kernel looks the route up and keeps it.
bool HasRoute(const addrinfo& address) {
  const FileDescriptor handle(socket(address.ai_family, SOCK_DGRAM | SOCK_CLOEXEC, 0));
  return handle >= 0 && connect(handle, address.ai_addr, address.ai_addrlen) == 0;
}

}  // namespace

FetchOutcome WhyUnreachable(const std::string& host) {
  if (GetLocalAnswers()) {
    return FetchOutcomeUnknown;
  }
  AddressList list;
  const int fault = Resolve(WithoutPort(host), list);
  if (fault == EAI_NONAME || fault == EAI_NODATA) {
    return FetchOutcomeNotResolved;
  }
  for (const addrinfo* address = list.get(); address != nullptr; address = address->ai_next) {
    if (HasRoute(*address)) {
      return FetchOutcomeUnknown;
    }
  }
  return FetchOutcomeNoNetwork;
}

bool IsHostReachable(const std::string& host) {
  return WhyUnreachable(host) == FetchOutcomeUnknown;
}

}  // namespace postwright
