#ifndef POSTWRIGHT_CORE_ENGINE_FIXRESULT_H_
#define POSTWRIGHT_CORE_ENGINE_FIXRESULT_H_

#include <cstdint>

namespace postwright {

// How a fix ended. Postwright::Fix yields three of these: FixResultDefaultMatch is returned,
// FixResultBadReply and FixResultInvalidAddress are thrown. The client adds FixResultNoInternet.
// The others complete the vocabulary of the postal service's own return codes (10 to 32), each with
// a message of the client's and its place in FixedAddress; numbers never change.
enum FixResult : std::int32_t {
  FixResultNone = 0,  // no result yet

  FixResultConnectionFailed = 1,
  FixResultNoData = 2,
  FixResultBadReply = 3,    // the reply was empty, not XML, or not an answer to the question
  FixResultNoInternet = 4,  // the network cannot be reached, so nothing was asked

  FixResultInvalidAddress = 10,  // the service turned the address down
  FixResultInvalidZip = 11,
  FixResultInvalidState = 12,
  FixResultInvalidCity = 13,

  FixResultAddressNotFound = 21,
  FixResultMultipleMatch = 22,
  FixResultStreetMismatch = 25,

  FixResultExactMatch = 31,
  FixResultDefaultMatch = 32,  // the service answered with a standard form
};

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_ENGINE_FIXRESULT_H_
