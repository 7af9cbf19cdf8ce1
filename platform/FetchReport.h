#ifndef POSTWRIGHT_PLATFORM_FETCHREPORT_H_
#define POSTWRIGHT_PLATFORM_FETCHREPORT_H_

#include <cstdint>

namespace postwright {

// How a fetch ended. Numbers never change, new ones may come.
enum FetchOutcome : std::int32_t {
  FetchOutcomeUnknown = 0,      // nothing was fetched, or by services that do not tell
  FetchOutcomeAnswered = 1,     // over HTTP, whatever its status
  FetchOutcomeNoNetwork = 2,    // no way to the host, or nobody to look up its name: nothing asked
  FetchOutcomeNotResolved = 3,  // there is no such host, or it has no address
  FetchOutcomeRefused = 4,      // no connection, or none that may be trusted
  FetchOutcomeTimedOut = 5,
  FetchOutcomeBrokeOff = 6,   // the connection ended before the answer did
  FetchOutcomeBadAnswer = 7,  // not HTTP, or too much of it
  FetchOutcomeAbandoned = 8,  // the caller lost interest
};

// What came of the fetch that a report is about.
struct FetchReport {
  FetchOutcome outcome = FetchOutcomeUnknown;
  std::int32_t httpStatus = 0;  // where answered
  std::int32_t retryAfter = 0;  // seconds, at most a day, as the service says; 0 where it does not
};

}  // namespace postwright

#endif  // POSTWRIGHT_PLATFORM_FETCHREPORT_H_
