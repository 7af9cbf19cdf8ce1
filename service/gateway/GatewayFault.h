#ifndef POSTWRIGHT_SERVICE_GATEWAY_GATEWAYFAULT_H_
#define POSTWRIGHT_SERVICE_GATEWAY_GATEWAYFAULT_H_

#include <optional>
#include <string>

#include "service/protocol/VerifyReply.h"
#include "service/upstream/Clock.h"
#include "service/upstream/Upstream.h"

namespace postwright::service {

// Returns what a client is told of an address that got no answer: what is wrong, and when to send
// it again, where that is known. Numbers and texts that the interface has for a case are its own;
// the others are 80040B18 with a text of ours.
ServiceFault ExplainFault(FaultKind kind, std::optional<Clock::Date> resumesAt);

// Returns a date as clients and people are told it: "2026-11-25 14:05:09 UTC".
std::string FormatDate(Clock::Date date);

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_GATEWAY_GATEWAYFAULT_H_
