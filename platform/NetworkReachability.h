#ifndef POSTWRIGHT_PLATFORM_NETWORKREACHABILITY_H_
#define POSTWRIGHT_PLATFORM_NETWORKREACHABILITY_H_

#include <postwright/Export.h>

#include <string>

namespace postwright {

// Returns whether `host` resolves and the system has a route to one of its addresses. The route is
// asked of the kernel, without sending a packet, so true does not promise that anyone answers.
// `host` is a name or an address, its port ignored where it has one: "example.com", "127.0.0.1:80",
// "::1", "[::1]:80". Loopback is reachable on a machine without any other network.
//
// False where the name is empty, does not resolve, or no route exists. Blocks for as long as the
// system's resolver does, which for an address is no time. Any thread may call it.
POSTWRIGHT_CORE_EXPORT bool IsHostReachable(const std::string& host);

}  // namespace postwright

#endif  // POSTWRIGHT_PLATFORM_NETWORKREACHABILITY_H_
