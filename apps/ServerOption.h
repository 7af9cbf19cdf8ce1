#ifndef POSTWRIGHT_APPS_SERVEROPTION_H_
#define POSTWRIGHT_APPS_SERVEROPTION_H_

#include <string>

namespace CLI {
class App;
}  // namespace CLI

namespace postwright {

// The option --server HOST[:PORT], which the programs have in common, and the variable
// POSTWRIGHT_SERVER of their environment, which says who is asked where the option does not. The
// library knows neither.

// Adds the option, whose help says who is asked where it is not given: `otherwise`, unless the
// variable names a server. `target` must live until `app` has parsed.
void AddServerOption(CLI::App& app, std::string& target, const std::string& otherwise);

// The host alone of HOST, HOST:PORT, [IPV6] or [IPV6]:PORT; empty where `server` is none of these.
std::string HostOf(const std::string& server);

// Returns what is wrong with `server` as a value of the option; empty if nothing is.
std::string CheckServer(const std::string& server);

// Has the fixes of this process ask `server`, which CheckServer() finds right; its host's
// reachability stands for the network's. As SetDeployment(): while no fix is under way.
void UseServer(const std::string& server);

// Says whether POSTWRIGHT_SERVER names one, rightly or not.
bool IsServerInEnvironment();

// Has them ask the one that POSTWRIGHT_SERVER names; does nothing where that is unset or empty. As
// UseServer(). Returns what is wrong with its value; empty if nothing is.
std::string UseServerOfEnvironment();

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_SERVEROPTION_H_
