#ifndef POSTWRIGHT_COMMON_URLPARTS_H_
#define POSTWRIGHT_COMMON_URLPARTS_H_

#include <optional>
#include <string>

namespace postwright {

// What an absolute URL says of who is asked, and how.
struct UrlParts {
  std::string scheme;    // "https", in small letters
  std::string host;      // without brackets' port: "example.org", "[::1]"
  bool isPlain = false;  // no user, no query, no fragment
};

// nullopt for what is not an absolute URL.
std::optional<UrlParts> SplitUrl(const std::string& url);

// Returns the URL to which `reference` leads from `base` (RFC 3986, section 5); nullopt where that
// is none.
std::optional<std::string> ResolveUrl(const std::string& base, const std::string& reference);

}  // namespace postwright

#endif  // POSTWRIGHT_COMMON_URLPARTS_H_
