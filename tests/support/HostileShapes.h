#ifndef POSTWRIGHT_TESTS_SUPPORT_HOSTILESHAPES_H_
#define POSTWRIGHT_TESTS_SUPPORT_HOSTILESHAPES_H_

#include <string>
#include <thread>
#include <vector>

#include "common/HttpFetch.h"
#include "tests/support/LoopbackServer.h"

namespace postwright {

// What a server may send, by mistake or malice, and what must come of it in every client here.
struct HostileShape {
  const char* name;
  LoopbackServer::Answer answer;
  HttpOutcome end = HttpOutcome::BadAnswer;
  std::string body = {};      // if it is Answered
  std::string unpacked = {};  // of a packed body, for clients that accept those
};

const std::vector<HostileShape>& HostileShapes();

// Calls `look` with each, all at once, since many of them end only by a time limit.
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

// The limits that the shapes are made for: small, to be reached at once.
HttpLimits HostileLimits();

}  // namespace postwright

#endif  // POSTWRIGHT_TESTS_SUPPORT_HOSTILESHAPES_H_
