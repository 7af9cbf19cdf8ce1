#ifndef POSTWRIGHT_APPS_VERIFYD_SERVICEOPTIONS_H_
#define POSTWRIGHT_APPS_VERIFYD_SERVICEOPTIONS_H_

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

#include "service/VerifyService.h"
#include "service/http/HttpServer.h"

namespace CLI {
class App;
}

namespace postwright::service {

// What the command line says of the service itself: where it listens, to whom, and how much of
// them.
struct ServiceOptions {
  std::string listen = "127.0.0.1:8470";
  std::vector<std::filesystem::path> bases;
  std::string users;  // empty: everybody
  std::vector<std::string> openPage;
  VerifyService::Options answers;
  HttpServer::Limits limits;
  std::vector<std::string> proxies;      // limits.proxies, as they are given
  std::chrono::seconds requestTime{60};  // limits.request, as it is given
};

// Adds the options to `app`, which fills `options` in when it parses; both must live until then.
void AddServiceOptions(CLI::App& app, ServiceOptions& options);

// What the options say together, once they are read, where an answer may take `answerTime`. Throws
// CLI::ValidationError.
void CompleteServiceOptions(ServiceOptions& options, std::chrono::seconds answerTime);

}  // namespace postwright::service

#endif  // POSTWRIGHT_APPS_VERIFYD_SERVICEOPTIONS_H_
