#ifndef POSTWRIGHT_SERVICE_UPSTREAM_UPSTREAMURL_H_
#define POSTWRIGHT_SERVICE_UPSTREAM_UPSTREAMURL_H_

#include <string>
#include <string_view>

namespace postwright::service {

// Reads where an upstream is: https://HOST[:PORT][/PATH], without a slash at its end. http is read
// as well where HOST is this machine's loopback: a secret goes over no network in the clear. Throws
// std::invalid_argument, whose what() says what would be right, for anything else.
std::string ReadUpstreamUrl(std::string_view text);

// Reads HOST[:PORT] or a whole URL of either scheme: a partner is asked with what its users know
// him by, and may be reached over your own network. A host alone is asked over https, this
// machine's loopback over http.
std::string ReadPartnerUrl(std::string_view text);

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_UPSTREAM_UPSTREAMURL_H_
