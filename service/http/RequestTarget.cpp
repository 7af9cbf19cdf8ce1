#include "service/http/RequestTarget.h"

#include <algorithm>

#include "common/SmallText.h"

namespace postwright::service {

RequestTarget RequestTarget::Of(std::string_view target) {
  RequestTarget parts;
  for (const std::string_view scheme : {"http://", "https://"}) {
    if (EqualsIgnoringCase(target.substr(0, scheme.size()), scheme)) {
      target.remove_prefix(scheme.size());
      parts.host = target.substr(0, target.find_first_of("/?"));
      target.remove_prefix(parts.host.size());
      break;
    }
  }
  const size_t mark = std::min(target.find('?'), target.size());
  parts.path = target.substr(0, mark);
  parts.query = target.substr(std::min(mark + 1, target.size()));
  if (parts.path.empty() && !parts.host.empty()) {
    parts.path = "/";
  }
  return parts;
}

}  // namespace postwright::service
