#ifndef POSTWRIGHT_SERVICE_GATEWAY_NORMALREQUEST_H_
#define POSTWRIGHT_SERVICE_GATEWAY_NORMALREQUEST_H_

#include <string>
#include <variant>

#include "postal/places/Rejection.h"
#include "postal/places/ZipList.h"
#include "service/protocol/VerifyRequest.h"

namespace postwright::service {

struct NormalRequest {
  RequestAddress address;
  std::string above;  // lines that belong in front of the answer's delivery line, as they were sent
};

// Brings an address into the form in which an upstream is asked for it, so that one address written
// in several ways is asked once:
//
//   {"", "", "12  main st., apt 4", "", "texas", "", "78701-1234"}
//   {"", "", "12 MAIN ST APT 4", "", "TX", "", "78701", "1234"}
//
// What a parser without a list of cities has cut wrongly is cut again (postal::LineCutter). Upper
// case, ASCII, one blank between words, no punctuation that says nothing; no ID; the state a
// code, taken from the ZIP code where only that was given; the delivery line in Address2, also
// where it came alone in Address1; Zip5 and Zip4 whole or empty. Nothing is standardised: that is
// for the upstream.
//
// Returns the reason where no upstream could answer the address, so that no call is spent on it: no
// delivery line, one that could be cut in several ways, a field too long or without Latin letters,
// no such state, neither a ZIP code nor a city and state; no ZIP code, where its city is asked for.
// Pure, for any thread.
std::variant<NormalRequest, postal::Rejection> NormaliseRequest(const RequestAddress& asked,
                                                                const postal::ZipList& zips);

// Returns what two normal requests have in common exactly if they are the same, of the same call,
// and candidates are wanted of both or of neither.
std::string KeyOf(const RequestAddress& normal);

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_GATEWAY_NORMALREQUEST_H_
