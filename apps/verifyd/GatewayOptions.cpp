#include "apps/verifyd/GatewayOptions.h"

#include <CLI/CLI.hpp>
#include <cstdlib>
#include <filesystem>

#include "apps/TimeOption.h"
#include "service/upstream/UpstreamUrl.h"

namespace postwright::service {
namespace {

constexpr const char* kNone = "none";

// Where answers are kept unless the command line says: in the state folder that systemd gives a
// service, or in the user's cache folder.
std::string DefaultCache() {
  const auto variable = [](const char* name) {
    const char* const text = std::getenv(name);
    return std::string(text == nullptr ? "" : text);
  };
  constexpr const char* kName = "answers.sqlite";
  if (const std::string state = variable("STATE_DIRECTORY"); !state.empty()) {
    return std::filesystem::path(state.substr(0, state.find(':'))) / kName;
  }
  std::filesystem::path caches = variable("XDG_CACHE_HOME");
  if (caches.empty() && !variable("HOME").empty()) {
    caches = std::filesystem::path(variable("HOME")) / ".cache";
  }
  return caches.empty() ? std::string() : (caches / "postwright" / kName).string();
}

void ReadUpstream(GatewayOptions& options) {
  const std::string& kind = options.upstream[0];
  const bool hasHost = options.upstream.size() > 1;
  if (kind == "postal-v3" && !hasHost) {
    options.url = ReadUpstreamUrl(options.url);
  } else if (kind == "verify-xml" && hasHost) {
    options.url = ReadPartnerUrl(options.upstream[1]);
  } else {
    throw CLI::ValidationError("--upstream", "takes 'postal-v3' or 'verify-xml HOST[:PORT]'");
  }
}

void AddUpstreamOptions(CLI::App& app, GatewayOptions& options) {
  app.add_option(
         "--upstream", options.upstream,
         "Ask 'postal-v3', the postal service's Addresses API, or 'verify-xml HOST[:PORT]', "
         "a service that still speaks the old form, instead of the base")
      ->expected(1, 2)
      ->type_name("KIND [HOST]");
  app.add_option("--upstream-url", options.url, "Where postal-v3 is (default " + options.url + ")")
      ->type_name("URL");
  app.add_option(
         "--credentials", options.credentials,
         "What the upstream knows the service by; its owner alone may read the file. SIGHUP "
         "reads it again")
      ->type_name("FILE");
  app.add_option_function<std::string>(
         "--budget",
         [&options](const std::string& text) {
           options.budget = text == kNone ? std::nullopt : Budget::ParseRate(text);
           if (!options.budget && text != kNone) {
             throw CLI::ValidationError("--budget", "'" + text + "' is not as 60/h, 5/min or none");
           }
         },
         "How often the upstream is asked at most (default 60/h)")
      ->type_name("CALLS/TIME");
}

void AddAnswerOptions(CLI::App& app, GatewayOptions& options) {
  app.add_option("--cache", options.cache,
                 "Where the upstream's answers are kept, or 'none' (default: answers.sqlite in "
                 "STATE_DIRECTORY or the user's cache folder)")
      ->type_name("FILE");
  AddTimeOption(app, "--cache-lifetime", options.lifetime,
                "How long they are good for (default 30d)");
  AddTimeOption(app, "--deadline", options.deadline,
                "How long a request waits for the upstream (default 20s)");
  app.add_option_function<std::string>(
         "--fallback",
         [&options](const std::string& text) {
           if (text != "base" && text != kNone) {
             throw CLI::ValidationError("--fallback", "takes 'base' or 'none'");
           }
           options.fallsBack = text == "base";
         },
         "Answer from 'base', marked as not confirmed, what the upstream cannot answer now "
         "(default "
         "none)")
      ->type_name("KIND");
  app.add_option(
         "--open-status", options.openStatus,
         "Show /status and /metrics to every client that asks for HOST, not to this machine "
         "alone; again for more")
      ->type_name("HOST")
      ->allow_extra_args(false);
}

}  // namespace

void AddGatewayOptions(CLI::App& app, GatewayOptions& options) {
  AddUpstreamOptions(app, options);
  AddAnswerOptions(app, options);
  for (const char* name : {"--upstream-url", "--credentials", "--budget", "--cache",
                           "--cache-lifetime", "--deadline", "--fallback"}) {
    app.get_option(name)->needs("--upstream");  // without a gateway they would do nothing
  }
}

void CompleteGatewayOptions(GatewayOptions& options) {
  if (!options.IsGateway()) {
    return;
  }
  try {
    ReadUpstream(options);
  } catch (const std::invalid_argument& error) {
    throw CLI::ValidationError("--upstream", error.what());
  }
  if (options.credentials.empty()) {
    throw CLI::ValidationError("--credentials", "is needed with --upstream");
  }
  if (options.cache.empty()) {
    options.cache = DefaultCache();
    if (options.cache.empty()) {
      throw CLI::ValidationError("--cache",
                                 "is needed where neither STATE_DIRECTORY nor HOME is set");
    }
  } else if (options.cache == kNone) {
    options.cache.clear();
  }
}

}  // namespace postwright::service
