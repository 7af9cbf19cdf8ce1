#ifndef POSTWRIGHT_SERVICE_HTTP_HOSTACCESS_H_
#define POSTWRIGHT_SERVICE_HTTP_HOSTACCESS_H_

#include <string>
#include <vector>

#include "service/http/HttpMessage.h"

namespace postwright::service {

// Who is shown the pages for people: clients on the same machine alone that ask for them by a name
// of loopback or by the address that is listened on. A page of the Web whose name has come to mean
// 127.0.0.1 asks for its own name. Nor are they shown to those that a proxy there asks for. A
// value; any thread.
struct HostAccess {
  std::string host;                      // that is listened on
  std::vector<std::string> openTo = {};  // hosts that every client may ask for, without a port

  bool Allows(const HttpRequest& request) const;

  // Says whether a request is of this server's own pages, or of no page at all: what a page of
  // another site sends bears that site's Origin (RFC 6454, section 7).
  static bool IsOwn(const HttpRequest& request);
};

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_HTTP_HOSTACCESS_H_
