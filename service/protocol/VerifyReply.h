#ifndef POSTWRIGHT_SERVICE_PROTOCOL_VERIFYREPLY_H_
#define POSTWRIGHT_SERVICE_PROTOCOL_VERIFYREPLY_H_

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "postal/places/Rejection.h"
#include "service/protocol/VerifyRequest.h"

namespace postwright::service {

// What is known of an address that could be placed. A text that is empty is left out of the reply,
// but for Address2, City, State, Zip5 and Zip4, which a client always finds.
struct ReplyFields {
  // What a default match says; clients compare it.
  static constexpr std::string_view kDefaultMatch =
      "Default address: The address you entered was found but more information is needed (such as "
      "an apartment, suite, or box number) to match to a specific address.";

  std::string firmName;
  std::string address1;
  std::string address2;
  std::string address2Abbreviation;  // where it differs
  std::string city;
  std::string cityAbbreviation;  // at most 13 letters, where the city has more and it is known
  std::string state;
  std::string urbanization;
  std::string zip5;
  std::string zip4;
  std::string deliveryPoint;    // two digits
  std::string returnText;       // kDefaultMatch, of both forms of the answer
  std::string carrierRoute;     // "C012"
  std::string footnotes;        // letters run together, "BN"
  std::string dpvConfirmation;  // Y, D, S or N
  std::string dpvCmra;          // Y or N, as the four others without a remark
  std::string dpvFalse;
  std::string dpvFootnotes;  // pairs run together, "AABB"
  std::string business;
  std::string centralDeliveryPoint;
  std::string vacant;

  bool operator==(const ReplyFields&) const = default;

  // Puts lines that are no part of the address, set apart by line feeds, in front of the delivery
  // line: there is no other place where clients look for them.
  void PutAbove(const std::string& lines);
};

// Why nothing can be said of an address now, as the root `Error` tells the client.
struct ServiceFault {
  std::string number;       // "80040B1A"
  std::string description;  // what happened and, where it is known, when to ask again
  std::string kind;         // one word for the log, "budget"

  bool operator==(const ServiceFault&) const = default;
};

// What is said of one address: why it is turned down, its standard form, or why nothing can be said
// of it now. The last makes the whole document an error: what stands beside an address would tell
// the client that the address is wrong.
using AddressAnswer = std::variant<postal::Rejection, ReplyFields, ServiceFault>;

// The answer to one address.
struct ReplyAddress {
  std::optional<std::string> id;
  AddressAnswer outcome;
};

// The reply documents of the Verify interface, as the postal service wrote them: the declaration,
// a line feed, and everything else in one line.
namespace VerifyReply {

// Returns `AddressValidateResponse` with the addresses in their order. With `revision1` the long
// form; without, the short one, whose City is the abbreviation and which has no footnotes and
// nothing about delivery point validation. The root `Error` where nothing can be said of one of
// them now.
std::string Compose(const std::vector<ReplyAddress>& addresses, bool revision1);

// Returns the root `Error` for a document that cannot be answered as a whole.
std::string ComposeFault(RequestFault fault);

// Returns the root `Error` for an API other than Verify.
std::string ComposeUnknownApi(std::string_view api);

// What stands for a rejection on the wire: "-2147219401", "Address Not Found.  ".
std::string_view NumberOf(postal::Rejection rejection);
std::string_view DescriptionOf(postal::Rejection rejection);

}  // namespace VerifyReply
}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_PROTOCOL_VERIFYREPLY_H_
