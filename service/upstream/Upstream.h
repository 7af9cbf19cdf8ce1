#ifndef POSTWRIGHT_SERVICE_UPSTREAM_UPSTREAM_H_
#define POSTWRIGHT_SERVICE_UPSTREAM_UPSTREAM_H_

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "service/protocol/VerifyReply.h"
#include "service/protocol/VerifyRequest.h"

namespace postwright::service {

// Why an address got no answer.
enum class FaultKind {
  Unauthorised,  // the upstream does not take our credentials
  Forbidden,     // it takes them, and lets them do nothing
  Quota,         // it has had enough calls
  Refused,       // it does not understand the call: what it takes has changed
  ServerError,   // it failed
  Unreachable,   // no connection to it
  TimedOut,      // a connection, and no answer in time
  BadReply,      // an answer that cannot be read
  // The gateway's own, without a call:
  BudgetSpent,  // as many calls as may be made have been made
  QueueFull,    // too many addresses wait
  Late,         // the address waited for its turn for too long
  Stopping,     // the service ends
};
constexpr size_t kFaultKinds = static_cast<size_t>(FaultKind::Stopping) + 1;

// Returns one word for a log or a metric: "budget-spent".
std::string_view NameOf(FaultKind kind);

struct UpstreamFault {
  FaultKind kind = FaultKind::BadReply;
  // What the upstream said about when to ask again.
  std::optional<std::chrono::seconds> retryAfter = {};
  // For the log and the status page, "HTTP 503"; nothing of the address, nothing secret.
  std::string detail = {};
};

using UpstreamAnswer = std::variant<ReplyFields, postal::Rejection, UpstreamFault>;

struct UpstreamOutcome {
  UpstreamAnswer answer;
  size_t calls = 1;        // that counted against the upstream's quota
  bool isComplete = true;  // false: another call may bring what this answer lacks
  std::vector<postal::Candidate> candidates = {};  // where they were asked for

  // Returns what it says to its askers, and to the cache. Must be no fault.
  AddressAnswer ToAnswer() const;
};

// Somebody who is asked for an address, one at a time, and who is limited, slow or away at times.
// The gateway stands in front of it.
class Upstream {
 public:
  virtual ~Upstream() = default;

  // Returns what tells it apart from every other, "postal-v3 https://apis.usps.com": answers are
  // kept under it.
  virtual const std::string& Name() const = 0;

  // Asks for a normal address (NormaliseRequest) and waits for the answer, for as long as its own
  // limits allow. Several threads at once.
  virtual UpstreamOutcome Ask(const RequestAddress& normal) = 0;

  // Says whether it names what could have been meant, to those who ask for it (RequestAddress).
  virtual bool OffersCandidates() const { return false; }

  // Reads the credentials again. Throws CredentialsError where the file cannot be used; the old
  // ones stay.
  virtual void ReloadCredentials() = 0;

  // Breaks off what is under way and whatever is asked from now on.
  virtual void Stop() = 0;
};

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_UPSTREAM_UPSTREAM_H_
