#ifndef POSTWRIGHT_TESTS_SUPPORT_HOSTILESHAPES_H_
#define POSTWRIGHT_TESTS_SUPPORT_HOSTILESHAPES_H_

#include <string>
#include <thread>
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
  std::string body = {};      // where it is Answered
  std::string unpacked = {};  // of a packed one, for those who take such answers
};

const std::vector<HostileShape>& HostileShapes();

// Calls `look` with each, all at once: many of them end with the time that a call may last.
template <typename Look>
void ForEachHostileShape(Look look) {
  std::vector<std::thread> threads;
  for (const HostileShape& shape : HostileShapes()) {
    threads.emplace_back([look, &shape] { look(shape); });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
}

// The limits that the shapes are made for: small, so that they are reached at once.
HttpLimits HostileLimits();

}  // namespace postwright

#endif  // POSTWRIGHT_TESTS_SUPPORT_HOSTILESHAPES_H_
