// The command `postwright-verifyd`: reads the command line and runs the local Verify service.

#include <fcntl.h>
#include <pthread.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <csignal>
#include <filesystem>
#include <functional>
#include <iostream>
#include <thread>

#include "apps/CharacterLocale.h"
#include "apps/verifyd/GatewayOptions.h"
#include "apps/verifyd/GatewayParts.h"
#include "service/Verifier.h"
#include "service/VerifyService.h"
#include "service/http/HttpServer.h"
#include "service/status/StatusPages.h"

namespace postwright::service {

namespace {

constexpr int kFailure = 1;
constexpr int kWrongUsage = 2;
constexpr std::chrono::seconds kDrainLimit(10);
constexpr std::chrono::seconds kDrainMargin(2);  // beyond what a request may wait for an upstream

constexpr const char* kName = "postwright-verifyd";
constexpr const char* kUsage =
    "postwright-verifyd [--listen ADDRESS:PORT] [--base FILE]... [--path-prefix PATH] "
    "[--log-addresses] [--open-status] [--upstream KIND [HOST] --credentials FILE ...]";
constexpr const char* kFooter =
    R"(Answers GET and POST /ShippingAPI.dll?API=Verify&XML=... as the postal service's Web Tools did, and
writes a line a request to standard error. Says 'listening on ADDRESS:PORT' once it can be asked.
SIGTERM or SIGINT ends it when the requests that have begun are answered; a second one, at once.
SIGHUP reads the credentials again. /status and /metrics show what it has done and is doing.

A base file has a line a ZIP code: ZIP, city and state, set apart by tabs.

With --upstream it is a gateway: it asks another service, keeps the answers, and keeps within a
budget of calls. A credentials file holds NAME = VALUE a line: client_id and client_secret for
postal-v3, user_id and, where one is needed, password for verify-xml.

Exit status: 0 ended by a signal; 1 the address cannot be listened on, or a base, the credentials or
the cache not be used; 2 wrong usage.

Examples: postwright-verifyd --listen 127.0.0.1:0
          postwright-verifyd --upstream postal-v3 --credentials postal.credentials
)";

struct Options {
  std::string listen = "127.0.0.1:8470";
  std::vector<std::string> bases;
  VerifyService::Options service;
  GatewayOptions gateway;
};

// The base that comes along, seen from where the program lies.
std::string DefaultBase() {
  const auto program = std::filesystem::read_symlink("/proc/self/exe");
  return (program.parent_path() / POSTWRIGHT_SHARE_FROM_BIN / "us-zips.tsv")
      .lexically_normal()
      .string();
}

// Says what is wrong with the value of --listen; the empty answer is consent.
std::string CheckListen(const std::string& address) {
  try {
    ListenAddress::Parse(address);
    return "";
  } catch (const ListenError& error) {
    return error.what();
  }
}

std::string CheckPathPrefix(const std::string& path) {
  return path.starts_with('/') && !path.ends_with('/')
             ? ""
             : "'" + path + "' does not begin with a slash or ends with one; right is /usps";
}

void AddOptions(CLI::App& app, Options& options) {
  app.set_version_flag("--version", std::string(kName) + " " POSTWRIGHT_VERSION,
                       "Print the version and exit");
  app.set_help_flag("-h,--help", "Print this help and exit");
  app.add_option("--listen", options.listen,
                 "Where to listen, " + options.listen + " if not given; port 0 takes a free one")
      ->type_name("ADDRESS:PORT")
      ->check(CLI::Validator(CheckListen, ""));
  app.add_option("--base", options.bases,
                 "What to know instead of the base that comes along; again for more files")
      ->type_name("FILE")
      ->allow_extra_args(false);
  app.add_option("--path-prefix", options.service.pathPrefix,
                 "What stands in front of /ShippingAPI.dll, such as /usps")
      ->type_name("PATH")
      ->check(CLI::Validator(CheckPathPrefix, ""));
  app.add_flag("--log-addresses", options.service.logAddresses,
               "Write addresses into the log; no line tells one otherwise")
      ->disable_flag_override();
  AddGatewayOptions(app, options.gateway);
  app.footer(kFooter);
}

// A standard stream that came closed must not be taken by the next file or connection: the log
// would be written into it.
void OccupyStandardStreams() {
  for (int descriptor = STDIN_FILENO; descriptor <= STDERR_FILENO; ++descriptor) {
    if (fcntl(descriptor, F_GETFD) == -1) {
      open("/dev/null", O_RDWR);
    }
  }
}

// Blocks the signals that are meant for the service, in this thread and in those that it starts:
// they wait for WaitForEnd.
sigset_t BlockSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, SIGTERM);
  sigaddset(&signals, SIGINT);
  sigaddset(&signals, SIGHUP);
  pthread_sigmask(SIG_BLOCK, &signals, nullptr);
  signal(SIGPIPE, SIG_IGN);  // a client or a log's reader that has gone away is no reason to end
  return signals;
}

// Waits for a signal that ends the service.
void WaitForEnd(const sigset_t& signals, const std::function<void()>& onHangUp) {
  for (int number = 0; sigwait(&signals, &number) != 0 || number == SIGHUP;) {
    onHangUp();
  }
}

void Serve(const Options& options) {
  const sigset_t signals = BlockSignals();
  ZipBase base;
  for (const std::string& file : options.bases) {
    base.Load(file);
  }
  RequestLog log(STDERR_FILENO, std::string(kName) + ": ");
  const Clock clock;
  Verifier verifier(base);
  GatewayParts parts(options.gateway, base, verifier, clock, log);
  VerifyService service(parts.Source(), options.service);
  const StatusPages pages(
      {service.Counts(), parts.GetGateway(), parts.GetCache(), parts.GetFallback()}, clock,
      POSTWRIGHT_VERSION, options.gateway.openStatus);
  const auto answer = [&](const HttpRequest& request, const Respond& respond) {
    if (std::optional<HttpReply> page = pages.Answer(request)) {
      respond(std::move(*page));
    } else {
      service.Answer(request, respond);
    }
  };
  HttpServer server(ListenAddress::Parse(options.listen), {}, answer, log);
  log.Write("listening on " + server.Address());
  WaitForEnd(signals, [&parts] { parts.ReloadCredentials(); });
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
  if (options.bases.empty()) {
    options.bases.push_back(DefaultBase());
  }
  Serve(options);
  return 0;
}

}  // namespace

}  // namespace postwright::service

int main(int argc, char** argv) {
  try {
    postwright::service::OccupyStandardStreams();
    postwright::SetCharacterLocale();
    return postwright::service::RunCommandLine(argc, argv);
  } catch (const std::exception& error) {
    std::cerr << postwright::service::kName << ": " << error.what() << '\n';
    return postwright::service::kFailure;
  }
}
