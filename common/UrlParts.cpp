#include "common/UrlParts.h"

#include <curl/curl.h>

#include <memory>

namespace postwright {

namespace {

struct Free {
  void operator()(CURLU* url) const { curl_url_cleanup(url); }
  void operator()(char* text) const { curl_free(text); }
};

using Url = std::unique_ptr<CURLU, Free>;

// Empty where there is no such part.
std::string Part(const Url& url, CURLUPart part) {
  char* text = nullptr;
  if (curl_url_get(url.get(), part, &text, 0) != CURLUE_OK) {
    return {};
  }
  const std::unique_ptr<char, Free> owner(text);
  return text;
}

Url Parse(const std::string& text) {
  Url url(curl_url());
  if (url && curl_url_set(url.get(), CURLUPART_URL, text.c_str(), 0) != CURLUE_OK) {
    url.reset();
  }
  return url;
}

}  // namespace

std::optional<UrlParts> SplitUrl(const std::string& url) {
  const Url parsed = Parse(url);
  if (!parsed) {
    return std::nullopt;
  }
  return UrlParts{Part(parsed, CURLUPART_SCHEME), Part(parsed, CURLUPART_HOST),
                  Part(parsed, CURLUPART_USER).empty() && Part(parsed, CURLUPART_QUERY).empty() &&
                      Part(parsed, CURLUPART_FRAGMENT).empty()};
}

std::optional<std::string> ResolveUrl(const std::string& base, const std::string& reference) {
  const Url url = Parse(base);
  if (!url || curl_url_set(url.get(), CURLUPART_URL, reference.c_str(), 0) != CURLUE_OK) {
    return std::nullopt;
  }
  return Part(url, CURLUPART_URL);
}

}  // namespace postwright
