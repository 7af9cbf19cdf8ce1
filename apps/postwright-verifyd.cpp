// postwright-verifyd: the local Verify service as a daemon.

#include <pthread.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <csignal>
#include <filesystem>
#include <iostream>
#include <thread>

#include "service/VerifyService.h"
#include "service/http/HttpServer.h"

namespace {

using namespace postwright::service;

constexpr int kFailure = 1;
constexpr int kUsage = 2;
constexpr std::chrono::seconds kDrainLimit(10);

struct Arguments {
  std::string listen = "127.0.0.1:8470";
  std::vector<std::string> bases;
  VerifyService::Options service;
};

// The base that is installed with the program, or the source tree's while it is not.
std::string DefaultBase() {
  std::error_code none;
  const auto program = std::filesystem::read_symlink("/proc/self/exe", none);
  const auto installed = program.parent_path() / POSTWRIGHT_SHARE_FROM_BIN / "us-zips.tsv";
  return !none && std::filesystem::exists(installed) ? installed.lexically_normal().string()
                                                     : POSTWRIGHT_SOURCE_BASE;
}

void Describe(CLI::App& app, Arguments& arguments) {
  app.set_version_flag("--version", "postwright-verifyd " POSTWRIGHT_VERSION);
  app.add_option("--listen", arguments.listen,
                 "Where to listen; port 0 takes a free one (default " + arguments.listen + ")")
      ->option_text("ADDRESS:PORT");
  app.add_option("--base", arguments.bases,
                 "ZIP codes: ZIP, city and state set apart by tabs; may be given several times, "
                 "later rows replace earlier ones (default: the base that comes with the program)")
      ->option_text("FILE");
  app.add_option("--path-prefix", arguments.service.pathPrefix,
                 "What stands in front of /ShippingAPI.dll, as in /usps")
      ->option_text("PATH")
      ->check([](const std::string& path) {
        return path.starts_with('/') && !path.ends_with('/')
                   ? ""
                   : "'" + path + "' does not begin with a slash, or ends with one";
      });
  app.add_flag("--log-addresses", arguments.service.logAddresses,
               "Write the addresses into the log as well; without it no line tells one");
  app.footer(
      "Answers GET and POST /ShippingAPI.dll?API=Verify&XML=... as the postal service's Web Tools\n"
      "did. Writes a line a request to standard error. SIGTERM or SIGINT ends it when the "
      "requests\n"
      "that have begun are answered; a second one ends it at once.");
}

// Waits for a signal that ends the program. The signals are blocked in every thread.
int WaitForEnd(const sigset_t& signals) {
  int signal = 0;
  sigwait(&signals, &signal);
  return signal;
}

int Serve(const Arguments& arguments, const sigset_t& signals) {
  ZipBase base;
  for (const std::string& file : arguments.bases) {
    base.Load(file);
  }
  RequestLog log(STDERR_FILENO, "postwright-verifyd: ");
  const VerifyService service(base, arguments.service);
  HttpServer server(
      ListenAddress::Parse(arguments.listen), {},
      [&](const HttpRequest& request) { return service.Answer(request); }, log);
  log.Write("listening on " + server.Address());
  WaitForEnd(signals);
  std::thread([&signals] {
    WaitForEnd(signals);
    _exit(kFailure);
  }).detach();
  server.Drain(kDrainLimit);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  // Before any thread starts, so that every thread leaves the signals to WaitForEnd.
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, SIGTERM);
  sigaddset(&signals, SIGINT);
  pthread_sigmask(SIG_BLOCK, &signals, nullptr);
  signal(SIGPIPE, SIG_IGN);

  Arguments arguments;
  CLI::App app("A local service that answers as the postal service's address verification did.",
               "postwright-verifyd");
  Describe(app, arguments);
  try {
    app.parse(argc, argv);
    if (arguments.bases.empty()) {
      arguments.bases.push_back(DefaultBase());
    }
    ListenAddress::Parse(arguments.listen);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? 0 : kUsage;
  } catch (const ListenError& error) {
    std::cerr << "postwright-verifyd: --listen: " << error.what() << '\n';
    return kUsage;
  }
  try {
    return Serve(arguments, signals);
  } catch (const std::exception& error) {
    std::cerr << "postwright-verifyd: " << error.what() << '\n';
    return kFailure;
  }
}
