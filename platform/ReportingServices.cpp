#include <postwright/ReportingServices.h>

namespace postwright {

std::unique_ptr<std::vector<std::uint8_t>> ReportingServices::ReadUrl(const wchar_t* url) {
  reply_.clear();
  std::unique_ptr<std::vector<std::uint8_t>> body = AbandonableServices::ReadUrl(url);
  reply_.assign(body->begin(), body->end());
  return body;
}

}  // namespace postwright
