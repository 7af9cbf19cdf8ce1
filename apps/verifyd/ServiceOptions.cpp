#include "apps/verifyd/ServiceOptions.h"

#include <CLI/CLI.hpp>
#include <climits>

#include "apps/TimeOption.h"
#include "service/http/ListenAddress.h"

namespace postwright::service {
namespace {

constexpr unsigned kMostThreads = 64;
constexpr unsigned kMostConnections = 100'000;
constexpr size_t kLeastHeader = 4096;
constexpr size_t kLeastBody = 1024;
constexpr size_t kMostBytes = 1024 * 1024;

// Returns what is wrong with the value of --listen; empty if nothing is.
std::string CheckListen(const std::string& address) {
  try {
    ListenAddress::Parse(address);
    return "";
  } catch (const ListenError& error) {
    return error.what();
  }
}

std::string CheckProxy(const std::string& address) {
  return !ListenAddress::ReadHost(address).empty()
             ? ""
             : "'" + address + "' is not an address, as in 192.0.2.1 or 2001:db8::1";
}

std::string CheckPathPrefix(const std::string& path) {
  return path.starts_with('/') && !path.ends_with('/')
             ? ""
             : "'" + path + "' does not begin with a slash or ends with one; right is /usps";
}

template <typename Number>
void AddNumber(CLI::App& app, const std::string& name, Number& target, Number least, Number most,
               const std::string& type, const std::string& help) {
  const std::string bounds = std::to_string(least) + " to " + std::to_string(most);
  app.add_option(name, target, help + ", " + bounds)
      ->type_name(type)
      ->check(CLI::Range(least, most).description(""));
}

void AddLimits(CLI::App& app, ServiceOptions& options) {
  HttpServer::Limits& limits = options.limits;
  const auto byDefault = [](const auto& value) {
    return " (default " + std::to_string(value) + ")";
  };
  AddNumber(app, "--threads", limits.threads, 1U, kMostThreads, "NUMBER",
            "Threads that answer (default: as many as processors, 2 to 8)");
  AddNumber(app, "--connections", limits.connections, 1U, kMostConnections, "NUMBER",
            "Connections in all" + byDefault(limits.connections));
  AddNumber(app, "--connections-per-address", limits.connectionsPerAddress, 1U, kMostConnections,
            "NUMBER",
            "Connections of one client address" + byDefault(limits.connectionsPerAddress));
  app.add_option("--trusted-proxy", options.proxies,
                 "The address of a proxy, to which that limit does not apply; may be repeated. It "
                 "never applies to loopback")
      ->type_name("ADDRESS")
      ->allow_extra_args(false)
      ->check(CLI::Validator(CheckProxy, ""));
  AddTimeOption(app, "--idle-time", limits.idle,
                "How long a connection may be silent (default 30s)");
  AddTimeOption(app, "--request-time", options.requestTime,
                "How long a request may take to arrive (default 60s)");
  AddNumber(app, "--header-size", limits.bytesPerConnection, kLeastHeader, kMostBytes, "BYTES",
            "Request line and headers together" + byDefault(limits.bytesPerConnection));
  AddNumber(app, "--body-size", limits.bodyBytes, kLeastBody, kMostBytes, "BYTES",
            "The body of a request" + byDefault(limits.bodyBytes));
}

}  // namespace

void AddServiceOptions(CLI::App& app, ServiceOptions& options) {
  app.add_option("--listen", options.listen,
                 "Where to listen (default " + options.listen + "); port 0 takes a free one")
      ->type_name("ADDRESS:PORT")
      ->check(CLI::Validator(CheckListen, ""));
  app.add_option("--users", options.users,
                 "The USERIDs to answer, one a line; without it everybody, which only a service on "
                 "loopback may do. SIGHUP reads the file again")
      ->type_name("FILE");
  app.add_option(
         "--base", options.bases,
         "A file to answer from, an address base or a list of ZIP codes; may be repeated. SIGHUP "
         "reads it again")
      ->type_name("FILE")
      ->allow_extra_args(false);
  app.add_option("--path-prefix", options.answers.pathPrefix,
                 "What comes before /ShippingAPI.dll, such as /usps")
      ->type_name("PATH")
      ->check(CLI::Validator(CheckPathPrefix, ""));
  app.add_flag("--log-addresses", options.answers.logAddresses,
               "Write addresses to the log, which otherwise holds none")
      ->disable_flag_override();
  app.add_option(
         "--open-page", options.openPage,
         "Show the page for people, /, to every client that asks for HOST, not only to this "
         "machine; may be repeated")
      ->type_name("HOST")
      ->allow_extra_args(false);
  app.add_flag("--quiet", options.limits.quiet,
               "Do not log requests that are answered; /metrics counts them")
      ->disable_flag_override()
      ->excludes("--log-addresses");
  AddLimits(app, options);
}

void CompleteServiceOptions(ServiceOptions& options, std::chrono::seconds answerTime) {
  options.answers.takesNotes = !options.limits.quiet;
  if (options.users.empty() && !ListenAddress::Parse(options.listen).IsLoopback()) {
    throw CLI::ValidationError(
        "--users", "is needed to listen on " + options.listen + ", where other machines can ask");
  }
  // The time of a request begins with the silence in front of it.
  if (options.requestTime <= options.limits.idle + answerTime) {
    throw CLI::ValidationError(
        "--request-time", "must be longer than a silence and an answer together, which may take " +
                              std::to_string((options.limits.idle + answerTime).count()) + "s");
  }
  options.limits.request = options.requestTime;
  for (const std::string& proxy : options.proxies) {
    options.limits.proxies.push_back(ListenAddress::ReadHost(proxy));
  }
}

}  // namespace postwright::service
