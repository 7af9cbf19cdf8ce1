#include "service/UrlRequest.h"

#include <algorithm>
#include <string_view>

#include "common/SmallText.h"
#include "service/http/HeadCheck.h"

namespace postwright::service {
namespace {

// The path and query of an absolute URL.
HttpRequest GetOf(std::string_view url) {
  constexpr std::string_view kScheme = "://";
  const size_t scheme = url.find(kScheme);
  url.remove_prefix(scheme == std::string_view::npos ? url.size() : scheme + kScheme.size());
  url.remove_prefix(std::min(url.find('/'), url.size()));
  url = url.substr(0, url.find('#'));
  const size_t mark = std::min(url.find('?'), url.size());
  return {"GET", std::string(url.substr(0, mark)),
          std::string(url.substr(std::min(mark + 1, url.size()))), ""};
}

RequestHead HeadOf(const std::vector<std::string>& headers) {
  RequestHead head;
  for (const std::string_view field : headers) {
    const size_t colon = std::min(field.find(':'), field.size());
    head.fields.emplace_back(field.substr(0, colon),
                             Trim(field.substr(std::min(colon + 1, field.size()))));
  }
  return head;
}

}  // namespace

HttpRequest RequestOf(const std::string& url, const std::vector<std::string>& headers) {
  HttpRequest request = GetOf(url);
  request.extensions = ExtensionsOf(HeadOf(headers));
  return request;
}

}  // namespace postwright::service
