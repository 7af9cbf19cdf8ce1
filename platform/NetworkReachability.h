#ifndef POSTWRIGHT_PLATFORM_NETWORKREACHABILITY_H_
#define POSTWRIGHT_PLATFORM_NETWORKREACHABILITY_H_

#include <postwright/Export.h>
#include <postwright/FetchReport.h>

#include <string>

namespace postwright {

// Returns why `host` is out of reach: FetchOutcomeNotResolved where there is no such name, or it
// has no address; FetchOutcomeNoNetwork where the system has no route to any of its addresses, or
// reaches nobody who knows names. FetchOutcomeUnknown where there is a route: the kernel is asked,
// without sending a packet, so that does not promise that anyone answers. Where the process
// answers by itself (LocalAnswers.h), every host is in reach: none is asked.
//
// `host` is a name or an address, its port ignored where it has one: "example.com", "127.0.0.1:80",
// "::1", "[::1]:80". Loopback is reachable on a machine without any other network. Blocks for as
// long as the system's resolver does, which for an address is no time. Any thread may call it.
POSTWRIGHT_CORE_EXPORT FetchOutcome WhyUnreachable(const std::string& host);

// Returns whether there is a route to `host`, in the same way.
POSTWRIGHT_CORE_EXPORT bool IsHostReachable(const std::string& host);

}  // namespace postwright

#endif  // POSTWRIGHT_PLATFORM_NETWORKREACHABILITY_H_
