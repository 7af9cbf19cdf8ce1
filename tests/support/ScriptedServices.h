#ifndef POSTWRIGHT_TESTS_SUPPORT_SCRIPTEDSERVICES_H_
#define POSTWRIGHT_TESTS_SUPPORT_SCRIPTEDSERVICES_H_

#include <postwright/LogFormat.h>
#include <postwright/MacPlatformServices.h>

#include <string>
#include <vector>

namespace postwright {

// Everything is real but the network: the reply is given, and requests and log lines are kept.
class ScriptedServices final : public MacPlatformServices {
 public:
  explicit ScriptedServices(std::string reply) : reply_(std::move(reply)) {}

  std::unique_ptr<std::vector<std::uint8_t>> ReadUrl(const wchar_t* url) override {
    urls.emplace_back(url);
    return std::make_unique<std::vector<std::uint8_t>>(reply_.begin(), reply_.end());
  }
  void LogError(const wchar_t* format, ...) override {
    va_list arguments;
    va_start(arguments, format);
    log.push_back(L"error: " + FormatLogMessage(format, arguments));
    va_end(arguments);
  }
  void LogWarning(const wchar_t* format, ...) override {
    va_list arguments;
    va_start(arguments, format);
    log.push_back(L"warning: " + FormatLogMessage(format, arguments));
    va_end(arguments);
  }

  std::vector<std::wstring> urls;
  std::vector<std::wstring> log;  // "error: Postwright::Fix(): ..."

 private:
  std::string reply_;
};

}  // namespace postwright

#endif  // POSTWRIGHT_TESTS_SUPPORT_SCRIPTEDSERVICES_H_
