#include "apps/ServerOption.h"

#include <postwright/Deployment.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdlib>
#include <string_view>

namespace postwright {

namespace {

constexpr std::string_view kDigits = "0123456789";
constexpr std::string_view kHostCharacters =
    "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-._";
constexpr std::string_view kIpv6Characters = "0123456789abcdefABCDEF:.";

bool ConsistsOf(std::string_view text, std::string_view characters) {
  return !text.empty() && text.find_first_not_of(characters) == std::string_view::npos;
}

bool IsPort(std::string_view text) {
  return ConsistsOf(text, kDigits) && text.size() <= 5 && std::stoi(std::string(text)) <= 65535;
}

// Empty where it is not set.
std::string ServerOfEnvironment() {
  const char* const server = std::getenv("POSTWRIGHT_SERVER");
  return server == nullptr ? "" : server;
}

}  // namespace

void AddServerOption(CLI::App& app, std::string& target, const std::string& otherwise) {
  const std::string ofEnvironment = ServerOfEnvironment();
  const std::string usual = ofEnvironment.empty()
                                ? otherwise + " unless given here or as POSTWRIGHT_SERVER"
                                : ofEnvironment + ", as POSTWRIGHT_SERVER says, unless given here";
  app.add_option("--server", target, "The Verify service to ask: " + usual)
      ->type_name("HOST[:PORT]")
      ->check(CLI::Validator(CheckServer, ""));
}

std::string HostOf(const std::string& server) {
  const bool isIpv6 = server.starts_with('[');
  const std::size_t end = std::min(server.find(isIpv6 ? ']' : ':'), server.size());
  const std::string host = isIpv6 ? server.substr(1, end - 1) : server.substr(0, end);
  const std::string port = server.substr(std::min(end + (isIpv6 ? 1 : 0), server.size()));
  const bool isHost = isIpv6 ? end < server.size() && ConsistsOf(host, kIpv6Characters)
                             : ConsistsOf(host, kHostCharacters);
  const bool isGood = isHost && (port.empty() || (port[0] == ':' && IsPort(port.substr(1))));
  return isGood ? host : "";
}

std::string CheckServer(const std::string& server) {
  return HostOf(server).empty() ? "'" + server + "' is not HOST[:PORT], as in 127.0.0.1:8470" : "";
}

bool IsServerInEnvironment() {
  return !ServerOfEnvironment().empty();
}

std::string UseServerOfEnvironment() {
  const std::string server = ServerOfEnvironment();
  if (server.empty()) {
    return "";
  }
  const std::string problem = CheckServer(server);
  if (problem.empty()) {
    UseServer(server);
  }
  return problem.empty() ? "" : "POSTWRIGHT_SERVER: " + problem;
}

void UseServer(const std::string& server) {
  Deployment deployment = GetDeployment();
  deployment.verifyHost = server;
  deployment.probeHost = HostOf(server);
  SetDeployment(deployment);
}

}  // namespace postwright
