#include <postwright/ReportingServices.h>

#include <postwright/LogFormat.h>

#include "platform/UrlFetch.h"

namespace postwright {

std::unique_ptr<std::vector<std::uint8_t>> ReportingServices::ReadUrl(const wchar_t* url) {
  Keep({}, {});
  HttpLimits limits = FetchLimits();
  limits.cancelled = Abandoned();
  std::vector<std::string> headers;
  if (wantsSource_) {
    headers.emplace_back("Postwright-Source: 1");
  }
  if (candidates_ > 0) {
    headers.push_back("Postwright-Candidates: " + std::to_string(candidates_));
  }
  FetchReport fetch;
  auto body = std::make_unique<std::vector<std::uint8_t>>(
      FetchUrl(UCS2ToUTF8(url), limits, &fetch, std::move(headers)));
  Keep(*body, fetch);
  return body;
}

void ReportingServices::LogWarning(const wchar_t* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  warning_ = FormatLogMessage(format, arguments);
  va_end(arguments);
}

void ReportingServices::Keep(const std::vector<std::uint8_t>& body, const FetchReport& fetch) {
  reply_.assign(body.begin(), body.end());
  fetch_ = fetch;
  warning_.clear();
}

}  // namespace postwright
