#ifndef POSTWRIGHT_APPS_SERVEROPTION_H_
#define POSTWRIGHT_APPS_SERVEROPTION_H_

#include <string>

namespace postwright {

// The option --server HOST[:PORT], which the programs have in common.

// The host alone of HOST, HOST:PORT, [IPV6] or [IPV6]:PORT; empty where `server` is none of these.
std::string HostOf(const std::string& server);

// Says what is wrong with `server` as a value of the option; the empty answer is consent.
std::string CheckServer(const std::string& server);

// Has the fixes of this process ask `server`, which CheckServer() finds right; its host's
// reachability stands for the network's. As SetDeployment(): while no fix is under way.
void UseServer(const std::string& server);

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_SERVEROPTION_H_
