#ifndef POSTWRIGHT_TESTS_SUPPORT_HOSTILESHAPES_H_
#define POSTWRIGHT_TESTS_SUPPORT_HOSTILESHAPES_H_

#include <string>
#include <vector>

#include "common/HttpFetch.h"
#include "tests/support/LoopbackServer.h"

namespace postwright {

// What a server may send, by fault or by malice, and what must come of it in everything here that
// asks one.
struct HostileShape {
  const char* name;
  LoopbackServer::Answer answer;
  HttpOutcome end = HttpOutcome::BadAnswer;
  std::string body = {};  // where it is Answered
};

const std::vector<HostileShape>& HostileShapes();

// The limits that the shapes are made for: small, so that they are reached at once.
HttpLimits HostileLimits();

}  // namespace postwright

#endif  // POSTWRIGHT_TESTS_SUPPORT_HOSTILESHAPES_H_
