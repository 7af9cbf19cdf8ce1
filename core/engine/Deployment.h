#ifndef POSTWRIGHT_CORE_ENGINE_DEPLOYMENT_H_
#define POSTWRIGHT_CORE_ENGINE_DEPLOYMENT_H_

#include <postwright/Export.h>

#include <string>

namespace postwright {

// Where this process's fixes go, unless it answers them by itself (LocalAnswers.h).
//
//   Deployment deployment = GetDeployment();
//   deployment.verifyHost = "127.0.0.1:8470";
//   SetDeployment(deployment);
struct Deployment {
  std::string verifyHost;  // host of the Verify service, with an optional port: "127.0.0.1:8470";
                           // ASCII, put into the request URL unchanged
  std::string userId;      // account identifier sent with every request, UTF-8
  std::string probeHost;   // host whose reachability stands for the network's, port optional
};

// Returns the values in force. Until SetDeployment they are those of the build: the CMake cache
// variables POSTWRIGHT_VERIFY_HOST, POSTWRIGHT_USER_ID and POSTWRIGHT_PROBE_HOST. The reference
// stays valid for the life of the process; any thread may read it.
POSTWRIGHT_CORE_EXPORT const Deployment& GetDeployment();

// Points the process elsewhere. Call it once, before the first fix and before other threads use the
// library: it takes no lock. Values are not checked; a host that does not exist shows itself as
// FixResultBadReply at the first fix.
POSTWRIGHT_CORE_EXPORT void SetDeployment(Deployment deployment);

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_ENGINE_DEPLOYMENT_H_
