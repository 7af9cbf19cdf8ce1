#ifndef POSTWRIGHT_APPS_VERIFYD_GATEWAYOPTIONS_H_
#define POSTWRIGHT_APPS_VERIFYD_GATEWAYOPTIONS_H_

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include "service/gateway/Budget.h"
#include "service/upstream/UpstreamKinds.h"

namespace CLI {
class App;
}

namespace postwright::service {

// What the command line says of the gateway.
struct GatewayOptions {
  std::vector<std::string> upstream;   // its kind, and its host where the kind needs one; or empty
  const UpstreamKind* kind = nullptr;  // once completed, as `upstream` says
  std::optional<std::string> url;      // as it is given; once completed the upstream's
  std::string credentials;
  std::optional<Budget::Rate> budget = Budget::Rate{};
  std::string cache;  // as it is given; once completed a file, empty for none
  std::chrono::seconds lifetime = std::chrono::hours(24 * 30);
  std::chrono::seconds deadline{20};
  bool fallsBack = false;
  std::vector<std::string> openStatus;

  bool IsGateway() const { return !upstream.empty(); }
};

// Adds the options to `app`, which fills `options` in when it parses; both must live until then.
void AddGatewayOptions(CLI::App& app, GatewayOptions& options);

// What the options say together, once they are read. Throws CLI::ValidationError.
void CompleteGatewayOptions(GatewayOptions& options);

}  // namespace postwright::service

#endif  // POSTWRIGHT_APPS_VERIFYD_GATEWAYOPTIONS_H_
