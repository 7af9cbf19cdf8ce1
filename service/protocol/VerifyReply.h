#ifndef POSTWRIGHT_SERVICE_PROTOCOL_VERIFYREPLY_H_
#define POSTWRIGHT_SERVICE_PROTOCOL_VERIFYREPLY_H_

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "postal/base/Candidate.h"
#include "postal/places/Rejection.h"
#include "service/protocol/ReplyFields.h"
#include "service/protocol/ReplySource.h"
#include "service/protocol/VerifyRequest.h"

namespace postwright::service {

// Why nothing can be said of an address now, as the root `Error` tells the client.
struct ServiceFault {
  std::string number;       // "80040B1A"
  std::string description;  // what happened and, where it is known, when to ask again
  std::string kind;         // one word for the log, "budget"
  // How long to wait before asking again, where the time is certain; 0 where it is not.
  std::chrono::seconds retryAfter = std::chrono::seconds(0);

  bool operator==(const ServiceFault&) const = default;
};

// What is said of one address: why it is turned down, its standard form, or why nothing can be said
// of it now. The last makes the whole document an error: what is beside an address would tell
// the client that the address is wrong. With what could have been meant, where that was asked for
// and there is a choice, and whose word it is.
struct AddressAnswer : std::variant<postal::Rejection, ReplyFields, ServiceFault> {
  using variant::variant;

  std::vector<postal::Candidate> candidates = {};
  ReplySource source = {};

  // Puts lines that are not part of the address in front of every delivery line.
  void PutAbove(const std::string& lines);
};

// The answer to one address.
struct ReplyAddress {
  std::optional<std::string> id;
  AddressAnswer outcome;
};

// The reply documents of the interface, as the postal service wrote them: the declaration, a line
// feed, and everything else in one line.
namespace VerifyReply {

// Returns `AddressValidateResponse`, or the root of another call, with the addresses in their
// order. The form that is not long has the abbreviation as its City, no footnotes and nothing about
// delivery point validation; of a ZIP code there are city and state alone. The root `Error` where
// nothing can be said of one of them now.
std::string Compose(const std::vector<ReplyAddress>& addresses, const ReplyForm& form);

// Returns the root `Error` for a document that cannot be answered as a whole.
std::string ComposeFault(RequestFault fault);

// Returns the root `Error` for an API that is none of AddressCall.
std::string ComposeUnknownApi(std::string_view api);

// What stands for a rejection on the wire: "-2147219401", "Address Not Found.  ".
std::string_view NumberOf(postal::Rejection rejection);
std::string_view DescriptionOf(postal::Rejection rejection);

// Returns the rejection that NumberOf calls so; nullopt for any other number.
std::optional<postal::Rejection> RejectionOf(std::string_view number);

}  // namespace VerifyReply
}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_PROTOCOL_VERIFYREPLY_H_
