#include "apps/verifyd/GatewayOptions.h"

#include <CLI/CLI.hpp>
#include <cstdlib>
#include <filesystem>

#include "apps/TimeOption.h"

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

// How a kind is asked for: 'verify-xml HOST[:PORT]'.
std::string Usage(const UpstreamKind& kind) {
  return "'" + std::string(kind.name) + (kind.takesHost ? " HOST[:PORT]'" : "'");
}

void ReadUpstream(GatewayOptions& options) {
  const bool hasHost = options.upstream.size() > 1;
  options.kind = FindUpstreamKind(options.upstream[0]);
  if (options.kind == nullptr || options.kind->takesHost != hasHost) {
    std::string kinds;
    for (const UpstreamKind& kind : UpstreamKinds()) {
      kinds += (kinds.empty() ? "" : " or ") + Usage(kind);
    }
    throw CLI::ValidationError("--upstream", "takes " + kinds);
  }
  options.url = options.kind->readUrl(hasHost ? options.upstream[1]
                                              : options.url.value_or(options.kind->url));
}

void AddUpstreamOptions(CLI::App& app, GatewayOptions& options) {
  std::string kinds;
  std::string places;
  for (const UpstreamKind& kind : UpstreamKinds()) {
    kinds += (kinds.empty() ? "" : "or ") + Usage(kind) + ", " + kind.description + ", ";
    if (!kind.takesHost) {
      places +=
          (places.empty() ? "" : "; ") + std::string(kind.name) + " is (default " + kind.url + ")";
    }
  }
  app.add_option("--upstream", options.upstream, "Ask " + kinds + "instead of the base")
      ->expected(1, 2)
      ->type_name("KIND [HOST]");
  app.add_option("--upstream-url", options.url, "Where " + places)->type_name("URL");
  app.add_option(
         "--credentials", options.credentials,
         "The service's credentials at the upstream; only the owner may have access to the file. "
         "SIGHUP reads it again")
      ->type_name("FILE");
  app.add_option_function<std::string>(
         "--budget",
         [&options](const std::string& text) {
           options.budget = text == kNone ? std::nullopt : Budget::ParseRate(text);
           if (!options.budget && text != kNone) {
             throw CLI::ValidationError("--budget", "'" + text + "' is not as 60/h, 5/min or none");
           }
         },
         "The most calls to the upstream in a time (default 60/h)")
      ->type_name("CALLS/TIME");
}

void AddAnswerOptions(CLI::App& app, GatewayOptions& options) {
  app.add_option("--cache", options.cache,
                 "Where the upstream's answers are kept, or 'none' (default: answers.sqlite in "
                 "STATE_DIRECTORY or the user's cache folder)")
      ->type_name("FILE");
  AddTimeOption(app, "--cache-lifetime", options.lifetime, "How long they are valid (default 30d)");
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
         "What the upstream cannot answer now, answer from 'base', marked as not confirmed "
         "(default none)")
      ->type_name("KIND");
  app.add_option(
         "--open-status", options.openStatus,
         "Show /status and /metrics to every client that asks for HOST, not only to this machine; "
         "may be repeated")
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
