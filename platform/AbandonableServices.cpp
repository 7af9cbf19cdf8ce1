#include <postwright/AbandonableServices.h>

#include "platform/UrlFetch.h"

namespace postwright {

std::unique_ptr<std::vector<std::uint8_t>> AbandonableServices::ReadUrl(const wchar_t* url) {
  HttpLimits limits = FetchLimits();
  limits.cancelled = abandoned_;
  return std::make_unique<std::vector<std::uint8_t>>(FetchUrl(UCS2ToUTF8(url), limits));
}

}  // namespace postwright
