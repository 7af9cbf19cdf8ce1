#include "core/c/HostServices.h"

#include "common/WideText.h"

#include <postwright/LogFormat.h>

namespace postwright {

namespace {

using boost::locale::conv::conversion_error;

}  // namespace

std::string HostServices::UCS2ToUTF8(const std::wstring& text) {
  return UCS2ToUTF8(text.c_str());
}

std::string HostServices::UCS2ToUTF8(const wchar_t* text) try {
  return text == nullptr ? std::string() : Utf8FromWide(text);
} catch (const conversion_error&) {
  return {};
}

std::wstring HostServices::UTF8ToUCS2(const std::string& text) {
  return UTF8ToUCS2(text.c_str());
}

std::wstring HostServices::UTF8ToUCS2(const char* text) try {
  return text == nullptr ? std::wstring() : WideFromUtf8(text);
} catch (const conversion_error&) {
  return {};
}

std::unique_ptr<std::vector<std::uint8_t>> HostServices::ReadUrl(const wchar_t* url) {
  if (callbacks_ == nullptr || callbacks_->read_url == nullptr) {
    return ReportingServices::ReadUrl(url);
  }
  postwright_body body;
  const bool wanted = Abandoned() == nullptr || !Abandoned()->load();
  if (!wanted || callbacks_->read_url(callbacks_->context, UCS2ToUTF8(url).c_str(), &body) != 0 ||
      body.failed) {
    body.bytes.clear();  // half a body is none
  }
  Keep(body.bytes, {});
  return std::make_unique<std::vector<std::uint8_t>>(std::move(body.bytes));
}

void HostServices::LogError(const wchar_t* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  Log(POSTWRIGHT_LOG_ERROR, format, arguments);
  va_end(arguments);
}

void HostServices::LogWarning(const wchar_t* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  Log(POSTWRIGHT_LOG_WARNING, format, arguments);
  va_end(arguments);
}

void HostServices::LogInfo(const wchar_t* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  Log(POSTWRIGHT_LOG_INFO, format, arguments);
  va_end(arguments);
}

void HostServices::Log(std::int32_t level, const wchar_t* format, va_list arguments) {
  if (callbacks_ != nullptr && callbacks_->log != nullptr) {
    const std::string message = UCS2ToUTF8(FormatLogMessage(format, arguments));
    callbacks_->log(callbacks_->context, level, message.c_str());
  }
}

}  // namespace postwright
