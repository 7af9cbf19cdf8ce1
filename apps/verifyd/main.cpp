// The command `postwright-verifyd`: reads the command line and runs the local Verify service.

#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <functional>
#include <iostream>
#include <thread>

#include "apps/CharacterLocale.h"
#include "apps/DefaultZips.h"
#include "apps/StandardStreams.h"
#include "apps/verifyd/GatewayOptions.h"
#include "apps/verifyd/GatewayParts.h"
#include "apps/verifyd/Process.h"
#include "apps/verifyd/ServiceOptions.h"
#include "postal/base/BaseFile.h"
#include "service/LocalSource.h"
#include "service/UserList.h"
#include "service/VerifyService.h"
#include "service/http/HttpServer.h"
#include "service/page/PeoplePage.h"
#include "service/status/StateView.h"
#include "service/status/StatusPages.h"

namespace postwright::service {

namespace {

constexpr int kFailure = 1;
constexpr int kWrongUsage = 2;
constexpr std::chrono::seconds kDrainLimit(10);
constexpr std::chrono::seconds kDrainMargin(2);  // beyond what a request may wait for an upstream

constexpr const char* kName = "postwright-verifyd";
constexpr const char* kUsage =
    "postwright-verifyd [--listen ADDRESS:PORT] [--users FILE] [--base FILE]... "
    "[--path-prefix PATH] [--log-addresses | --quiet] [--open-status HOST]... "
    "[--open-page HOST]... "
    "[--upstream KIND [HOST] --credentials FILE ...] [LIMITS]";
constexpr const char* kFooter =
    R"(Answers GET and POST /ShippingAPI.dll?API=Verify&XML=... as the postal service's Web Tools did, and
    writes a line a request to standard error, unless --quiet is given. Says 'listening on ADDRESS:PORT'
    once it is ready. SIGTERM or SIGINT ends it once the requests under way are answered; a second one,
    at once. SIGHUP reads the base, the users and the credentials again. / is a page for people on this
    machine; /status and /metrics show what it has done and is doing.

A base file is an address base, made by postwright-base, or a list of ZIP codes, one a line: ZIP, city
and state, separated by tabs. If no list is given, the one that comes with the service is used.

With --upstream it is a gateway: it asks another service, keeps the answers, and keeps within a
budget of calls. Each line of a credentials file is NAME = VALUE: client_id and client_secret for
postal-v3; user_id and, if needed, password for verify-xml.

Exit status: 0 ended by a signal; 1 it cannot listen on the address, or a file cannot be used; 2 wrong
usage.

Examples: postwright-verifyd --listen 127.0.0.1:0
          postwright-verifyd --upstream postal-v3 --credentials postal.credentials
)";

struct Options {
  ServiceOptions service;
  GatewayOptions gateway;
};

void AddOptions(CLI::App& app, Options& options) {
  app.set_version_flag("--version", std::string(kName) + " " POSTWRIGHT_VERSION,
                       "Print the version and exit");
  app.set_help_flag("-h,--help", "Print this help and exit");
  AddServiceOptions(app, options.service);
  AddGatewayOptions(app, options.gateway);
  app.final_callback([&options] {
    CompleteGatewayOptions(options.gateway);
    CompleteServiceOptions(options.service, options.gateway.IsGateway() ? options.gateway.deadline
                                                                        : std::chrono::seconds(0));
  });
  app.footer(kFooter);
}

// Reads again what a SIGHUP is for. What cannot be used changes nothing.
void Reload(LocalSource& local, UserList* users, Gateway* gateway, RequestLog& log) {
  const auto attempt = [&log](const char* what, const std::function<void()>& read) {
    try {
      read();
      log.Write("the " + std::string(what) + " was read again");
    } catch (const std::exception& error) {
      log.Write(std::string(error.what()) + "; the old " + what + " stays in use");
    }
  };
  attempt("base", [&local] { local.Reload(); });
  if (users != nullptr) {
    attempt("list of users", [users] { users->Reload(); });
  }
  if (gateway != nullptr) {
    attempt("file of credentials", [gateway] { gateway->ReloadCredentials(); });
  }
}

void Serve(const Options& options) {
  const sigset_t signals = BlockSignals();
  ReserveDescriptors(options.service.limits.connections);
  LocalSource local(options.service.bases, postal::AddressBase::kMostInMemory,
                    postal::StreetCache::kCountry);
  std::optional<UserList> users;
  if (!options.service.users.empty()) {
    users.emplace(options.service.users);
  }
  UserList* const knownUsers = users ? &*users : nullptr;
  RequestLog log(STDERR_FILENO, std::string(kName) + ": ");
  const Clock clock;
  GatewayParts parts(options.gateway, local, clock, log);
  VerifyService service(parts.Source(), knownUsers, options.service.answers);
  const std::string host = ListenAddress::Parse(options.service.listen).Host();
  StatusPages::Sources sources = {service.Counts(), parts.GetGateway(), parts.GetCache(),
                                  parts.GetFallback()};
  const HostAccess seesState{host, options.gateway.openStatus};
  PeoplePage people(parts.Source(), POSTWRIGHT_VERSION, {host, options.service.openPage},
                    [seesState, state = StateView(sources, local)](const HttpRequest& request) {
                      return seesState.Allows(request) ? state.Section() : std::string();
                    });
  sources.people = &people.Counts();
  const StatusPages pages(sources, clock, POSTWRIGHT_VERSION, seesState);
  const auto answer = [&](const HttpRequest& request, const Respond& respond) {
    if (std::optional<HttpReply> page = pages.Answer(request)) {
      respond(std::move(*page));
    } else if (!people.Answer(request, respond)) {
      service.Answer(request, respond);
    }
  };
  HttpServer::Limits limits = options.service.limits;
  limits.roomierBody = [&people](const HttpRequest& request) { return people.RoomFor(request); };
  HttpServer server(ListenAddress::Parse(options.service.listen), limits, answer, log);
  log.Write("listening on " + server.Address());
  WaitForEnd(signals, [&] { Reload(local, knownUsers, parts.GetGateway(), log); });
  std::thread([signals] {
    WaitForEnd(signals, [] {});
    _exit(kFailure);
  }).detach();
  server.Drain(std::max(kDrainLimit, options.gateway.deadline + kDrainMargin));
}

int RunCommandLine(int argc, char** argv) {
  CLI::App app("A local service that answers as the postal service's address verification did.",
               kName);
  Options options;
  AddOptions(app, options);
  try {
    app.parse(argc, argv);
  } catch (const CLI::Success& question) {
    return app.exit(question);
  } catch (const CLI::ParseError& error) {
    std::cerr << kName << ": " << error.what() << "\nUsage: " << kUsage << "\n'" << kName
              << " --help' says more.\n";
    return kWrongUsage;
  }
  // An address base says which streets a ZIP code has, not which ZIP codes there are.
  if (std::all_of(options.service.bases.begin(), options.service.bases.end(),
                  postal::BaseFile::IsMeant)) {
    options.service.bases.emplace_back(DefaultZips());
  }
  Serve(options);
  return 0;
}

}  // namespace

}  // namespace postwright::service

int main(int argc, char** argv) {
  try {
    postwright::OccupyStandardStreams();
    postwright::SetCharacterLocale();
    return postwright::service::RunCommandLine(argc, argv);
  } catch (const std::exception& error) {
    std::cerr << postwright::service::kName << ": " << error.what() << '\n';
    return postwright::service::kFailure;
  }
}
