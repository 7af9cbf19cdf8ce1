#include "tests/support/ScriptedServices.h"

#include "platform/LogFormat.h"

namespace postwright {

std::unique_ptr<std::vector<std::uint8_t>> ScriptedServices::ReadUrl(const wchar_t* url) {
  urls.emplace_back(url);
  return std::make_unique<std::vector<std::uint8_t>>(reply_.begin(), reply_.end());
}

void ScriptedServices::LogError(const wchar_t* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  log.push_back(L"error: " + FormatLogMessage(format, arguments));
  va_end(arguments);
}

void ScriptedServices::LogWarning(const wchar_t* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  log.push_back(L"warning: " + FormatLogMessage(format, arguments));
  va_end(arguments);
}

void ScriptedServices::LogInfo(const wchar_t* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  log.push_back(L"info: " + FormatLogMessage(format, arguments));
  va_end(arguments);
}

}  // namespace postwright
