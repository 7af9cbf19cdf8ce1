#include "service/upstream/UpstreamUrl.h"

#include <algorithm>
#include <stdexcept>

#include "common/Loopback.h"

namespace postwright::service {
namespace {

constexpr std::string_view kHttps = "https://";
constexpr std::string_view kHttp = "http://";

// The host of what follows the scheme, IPv6 in its brackets.
std::string_view HostOf(std::string_view authority) {
  authority = authority.substr(0, authority.find('/'));
  const size_t bracket = authority.find(']');
  return bracket != std::string_view::npos ? authority.substr(0, bracket + 1)
                                           : authority.substr(0, authority.find(':'));
}

// Says whether `authority` has a host and nothing that is not part of an address of a server: no
// user, query or fragment.
bool IsPlain(std::string_view authority) {
  static constexpr std::string_view kForbidden = "@?#\\\"<>";
  const std::string_view behind =
      authority.substr(HostOf(authority).size(), 1);  // a port, a path or nothing
  return !HostOf(authority).empty() && (behind.empty() || behind == ":" || behind == "/") &&
         std::all_of(authority.begin(), authority.end(), [](char c) {
           return c > ' ' && c <= '~' && kForbidden.find(c) == std::string_view::npos;
         });
}

std::string_view WithoutSlash(std::string_view text) {
  return text.ends_with('/') ? text.substr(0, text.size() - 1) : text;
}

}  // namespace

std::string ReadUpstreamUrl(std::string_view text) {
  const std::string_view url = WithoutSlash(text);
  if (url.starts_with(kHttps) && IsPlain(url.substr(kHttps.size()))) {
    return std::string(url);
  }
  if (url.starts_with(kHttp) && IsPlain(url.substr(kHttp.size())) &&
      IsLoopback(HostOf(url.substr(kHttp.size())))) {
    return std::string(url);
  }
  throw std::invalid_argument("'" + std::string(text) +
                              "' is not https://HOST[:PORT], as in https://apis.usps.com");
}

std::string ReadPartnerUrl(std::string_view text) {
  const std::string_view url = WithoutSlash(text);
  for (const std::string_view scheme : {kHttps, kHttp}) {
    if (url.starts_with(scheme) && IsPlain(url.substr(scheme.size()))) {
      return std::string(url);
    }
  }
  if (!IsPlain(url) || url.find('/') != std::string_view::npos) {
    throw std::invalid_argument("'" + std::string(text) +
                                "' is not HOST[:PORT], as in verify.example.com");
  }
  return std::string(IsLoopback(HostOf(url)) ? kHttp : kHttps) + std::string(url);
}

}  // namespace postwright::service
