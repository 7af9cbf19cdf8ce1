#ifndef POSTWRIGHT_SERVICE_PROTOCOL_VERIFYREQUEST_H_
#define POSTWRIGHT_SERVICE_PROTOCOL_VERIFYREQUEST_H_

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "service/protocol/AddressCall.h"

namespace postwright::service {

// One address as it was asked for: UTF-8, as the client wrote it, lines within a field separated by
// line feeds. Elements that the client left out are empty; of a ZIP code whose city is asked for
// there is nothing but zip5.
struct RequestAddress {
  std::optional<std::string> id;  // the attribute ID; the answer has one only if the request had
  std::string firmName;
  std::string address1;  // the unit
  std::string address2;  // the delivery line
  std::string city;
  std::string state;
  std::string urbanization;
  std::string zip5;
  std::string zip4;
  bool cutShort = false;  // the document ended within this address
  // Of what could have been meant, how much the answer may name: not in the document, but in the
  // head of its request.
  size_t candidates = 0;
  AddressCall call = AddressCall::Verify;  // what is asked about it

  // Returns the ZIP code, of five digits or the first of nine in Zip5; empty where it is neither.
  std::string Zip() const;

  // Returns the ZIP+4 add-on: four digits of Zip4, or the last four of nine in Zip5; empty where
  // there is none.
  std::string AddOn() const;
};

// Returns a field in the letters that addresses are written in (FoldToAscii); nullopt where it is
// longer than VerifyRequest::kLongestField or has letters that no address is written in.
std::optional<std::string> FoldField(std::string_view sent);

struct RequestField {
  std::string_view element;
  std::string RequestAddress::*member;
};

// In the order that the interface insists on.
inline constexpr RequestField kRequestFields[] = {
    {"FirmName", &RequestAddress::firmName}, {"Address1", &RequestAddress::address1},
    {"Address2", &RequestAddress::address2}, {"City", &RequestAddress::city},
    {"State", &RequestAddress::state},       {"Urbanization", &RequestAddress::urbanization},
    {"Zip5", &RequestAddress::zip5},         {"Zip4", &RequestAddress::zip4},
};

// The field of a request's head that asks for candidates: how many at most, "50".
inline constexpr std::string_view kCandidatesHeader = "Postwright-Candidates";

// The one that asks whose word each answer is: "1".
inline constexpr std::string_view kSourceHeader = "Postwright-Source";

// What a client wants in the answers to a document.
struct ReplyForm {
  AddressCall call = AddressCall::Verify;
  bool isLong = false;            // <Revision>1</Revision>: every element there is
  bool hasDeliveryPoint = false;  // <IncludeOptionalElements>true</IncludeOptionalElements>
  bool hasCarrierRoute = false;   // <ReturnCarrierRoute>true</ReturnCarrierRoute>
};

// Why a document as a whole cannot be answered.
enum class RequestFault {
  Syntax,            // not XML, or XML of another kind
  NoUser,            // no USERID
  TooManyAddresses,  // more than kMostAddresses
};

// A request document of the interface: `AddressValidateRequest`, or that of another call.
//
//   const auto request = VerifyRequest::Read(document, AddressCall::Verify);
//   if (const auto* good = std::get_if<VerifyRequest>(&request)) { … good->addresses … }
struct VerifyRequest {
  static constexpr size_t kMostAddresses = 5;    // of the interface
  static constexpr size_t kLongestField = 200;   // bytes that are kept; the interface has 38
  static constexpr size_t kDeepestElement = 16;  // the interface has 3
  static constexpr size_t kLongestDocument = 64 * 1024;  // bytes; five full addresses take 4 KiB

  std::string userId;
  ReplyForm form;
  std::vector<RequestAddress> addresses;

  // Reads a document of any content, sent with that call. UTF-8, UTF-16 with its mark, and what is
  // neither as Windows-1252, whatever the declaration says: clients are careless with it.
  //
  // A document that ends too early is read as far as it goes, since clients that forget to escape
  // an ampersand have it cut there by the query's own syntax; an address that it ends in is marked.
  // One that ends before its first address, is not well-formed, carries a document type (and with
  // it entities), nests deeper than kDeepestElement or is longer than kLongestDocument is a fault.
  // Needs memory in proportion to the document, and no deeper a stack for deeper nesting. Any
  // thread.
  static std::variant<VerifyRequest, RequestFault> Read(std::string_view document,
                                                        AddressCall call = AddressCall::Verify);
};

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_PROTOCOL_VERIFYREQUEST_H_
