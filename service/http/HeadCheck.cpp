#include "service/http/HeadCheck.h"

#include <algorithm>

#include "common/SmallText.h"

namespace postwright::service {
namespace {

constexpr std::string_view kOwn = "Postwright-";
constexpr std::string_view kForwarded = "X-Forwarded";  // -For, -Host, -Proto, -Port, -Server, …
constexpr std::string_view kProxyFields[] = {
    "Forwarded",
    "Forwarded-For",
    "Via",
    "X-Real-IP",
    "X-Client-IP",
    "Client-IP",
    "True-Client-IP",
    "X-Cluster-Client-IP",
    "X-Original-Forwarded-For",
    "X-Original-Host",
    "X-ProxyUser-IP",
    "X-Remote-Addr",
    "X-Remote-IP",
    "X-Envoy-External-Address",
    "CF-Connecting-IP",
    "Fastly-Client-IP",
    "CDN-Loop",
    "X-Azure-ClientIP",
};

bool IsTokenCharacter(char c) {
  constexpr std::string_view kSigns = "!#$%&'*+-.^_`|~";
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
         kSigns.find(c) != std::string_view::npos;
}

bool IsToken(std::string_view name) {
  return !name.empty() && std::all_of(name.begin(), name.end(), IsTokenCharacter);
}

bool IsControl(char c) {
  return (c >= '\0' && c < ' ' && c != '\t') || c == '\x7F';
}

bool HasControl(std::string_view text) {
  return std::any_of(text.begin(), text.end(), IsControl);
}

bool IsNumber(std::string_view text) {
  return !text.empty() &&
         std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace

std::string_view ObjectionTo(const RequestHead& head) {
  size_t lengths = 0;
  size_t codings = 0;
  size_t hosts = 0;
  for (const auto& [name, value] : head.fields) {
    if (!IsToken(name) || HasControl(value)) {
      return "a header that cannot be read";
    }
    if (EqualsIgnoringCase(name, "Content-Length") && (++lengths > 1 || !IsNumber(value))) {
      return "a Content-Length that is not one number";
    }
    if (EqualsIgnoringCase(name, "Transfer-Encoding") &&
        (++codings > 1 || !EqualsIgnoringCase(value, "chunked"))) {
      return "a Transfer-Encoding other than chunked";
    }
    if (EqualsIgnoringCase(name, "Host") && ++hosts > 1) {
      return "two Hosts";
    }
  }
  if (codings > 0 && (lengths > 0 || head.version != "HTTP/1.1")) {
    return "a Transfer-Encoding beside a Content-Length, or in HTTP/1.0";
  }
  if (HasControl(head.target) || head.target.find_first_of(" \t") != std::string_view::npos) {
    return "a request line that cannot be read";
  }
  return {};
}

bool IsForwarded(const RequestHead& head) {
  return std::any_of(head.fields.begin(), head.fields.end(), [](const auto& field) {
    const std::string_view name = field.first;
    return EqualsIgnoringCase(name.substr(0, kForwarded.size()), kForwarded) ||
           std::any_of(std::begin(kProxyFields), std::end(kProxyFields),
                       [&](std::string_view usual) { return EqualsIgnoringCase(name, usual); });
  });
}

std::vector<std::pair<std::string, std::string>> ExtensionsOf(const RequestHead& head) {
  std::vector<std::pair<std::string, std::string>> extensions;
  for (const auto& [name, value] : head.fields) {
    if (EqualsIgnoringCase(name.substr(0, kOwn.size()), kOwn)) {
      extensions.emplace_back(name, value);
    }
  }
  return extensions;
}

}  // namespace postwright::service
