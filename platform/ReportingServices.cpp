#include <postwright/ReportingServices.h>

#include "platform/UrlFetch.h"

namespace postwright {

std::unique_ptr<std::vector<std::uint8_t>> ReportingServices::ReadUrl(const wchar_t* url) {
  reply_.clear();
  fetch_ = FetchReport();
  HttpLimits limits = FetchLimits();
  limits.cancelled = Abandoned();
  auto body =
      std::make_unique<std::vector<std::uint8_t>>(FetchUrl(UCS2ToUTF8(url), limits, &fetch_));
  reply_.assign(body->begin(), body->end());
  return body;
}

}  // namespace postwright
