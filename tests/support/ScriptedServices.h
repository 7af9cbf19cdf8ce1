#ifndef POSTWRIGHT_TESTS_SUPPORT_SCRIPTEDSERVICES_H_
#define POSTWRIGHT_TESTS_SUPPORT_SCRIPTEDSERVICES_H_

#include <postwright/MacPlatformServices.h>

#include <string>
#include <vector>

namespace postwright {

// Everything real but the network: the reply is given, requests and log lines are kept.
class ScriptedServices final : public MacPlatformServices {
 public:
  explicit ScriptedServices(std::string reply) : reply_(std::move(reply)) {}

  std::unique_ptr<std::vector<std::uint8_t>> ReadUrl(const wchar_t* url) override;
  void LogError(const wchar_t* format, ...) override;
  void LogWarning(const wchar_t* format, ...) override;
  void LogInfo(const wchar_t* format, ...) override;

  std::vector<std::wstring> urls;
  std::vector<std::wstring> log;  // each line behind "error: ", "warning: " or "info: "

 private:
  std::string reply_;
};

}  // namespace postwright

#endif  // POSTWRIGHT_TESTS_SUPPORT_SCRIPTEDSERVICES_H_
