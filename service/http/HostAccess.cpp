#include "service/http/HostAccess.h"

#include <algorithm>
#include <string_view>

#include "common/Loopback.h"
#include "common/SmallText.h"

namespace postwright::service {
namespace {

// The host of a Host header, without its port and the brackets of IPv6.
std::string_view WithoutPort(std::string_view host) {
  if (host.starts_with('[')) {
    return host.substr(1, host.find(']') - 1);
  }
  return host.substr(0, host.find(':'));
}

}  // namespace

bool HostAccess::Allows(const HttpRequest& request) const {
  const std::string_view asked = WithoutPort(request.host);
  const auto isAsked = [&](const std::string& name) { return EqualsIgnoringCase(name, asked); };
  if (std::any_of(openTo.begin(), openTo.end(), isAsked)) {
    return true;
  }
  return !request.isForwarded && IsLoopback(request.client) && (IsLoopback(asked) || isAsked(host));
}

bool HostAccess::IsOwn(const HttpRequest& request) {
  const std::string_view origin = request.origin;
  return origin.empty() || EqualsIgnoringCase(origin, "http://" + request.host) ||
         EqualsIgnoringCase(origin, "https://" + request.host);
}

}  // namespace postwright::service
