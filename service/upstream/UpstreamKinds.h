#ifndef POSTWRIGHT_SERVICE_UPSTREAM_UPSTREAMKINDS_H_
#define POSTWRIGHT_SERVICE_UPSTREAM_UPSTREAMKINDS_H_

#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "service/upstream/Clock.h"
#include "service/upstream/Upstream.h"
#include "service/upstream/Zips.h"

namespace postwright::service {

// What an upstream of any kind is made of. `url` is what the kind's readUrl() has returned.
struct UpstreamParts {
  std::string url;
  std::string credentials;  // a file, see Credentials
  Zips zips;
  const Clock& clock;
};

// A kind of service that can be asked.
struct UpstreamKind {
  std::string_view name;    // as the command line has it: "postal-v3"
  const char* description;  // for the help, after the name
  bool takesHost;           // HOST[:PORT] stands after the name; else it has a place of its own
  const char* url;          // that place; "" where it takes a host
  // Returns the URL that `text` means. Throws std::invalid_argument, whose what() says what would
  // be right.
  std::string (*readUrl)(std::string_view text);
  // Throws CredentialsError. Borrows the clock.
  std::unique_ptr<Upstream> (*make)(const UpstreamParts& parts);
};

// Every kind there is. A new kind is a line of this table; the command line's words follow it.
std::span<const UpstreamKind> UpstreamKinds();

// Null where there is none of this name.
const UpstreamKind* FindUpstreamKind(std::string_view name);

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_UPSTREAM_UPSTREAMKINDS_H_
