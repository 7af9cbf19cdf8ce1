#ifndef POSTWRIGHT_SERVICE_PROTOCOL_ADDRESSCALL_H_
#define POSTWRIGHT_SERVICE_PROTOCOL_ADDRESSCALL_H_

#include <algorithm>
#include <iterator>
#include <string_view>

namespace postwright::service {

// The calls of the interface that are about addresses.
enum class AddressCall {
  Verify,   // an address in its standard form, and whether it is confirmed
  ZipCode,  // the same address, for its ZIP+4
  City,     // the city and state of a ZIP code
};

// What a call is named by in requests and replies.
struct CallWords {
  AddressCall call;
  std::string_view api;       // the field API
  std::string_view request;   // the root of a request
  std::string_view response;  // the root of a reply
  std::string_view item;      // what both hold one to five of
};

inline constexpr CallWords kAddressCalls[] = {
    {AddressCall::Verify, "Verify", "AddressValidateRequest", "AddressValidateResponse", "Address"},
    {AddressCall::ZipCode, "ZipCodeLookup", "ZipCodeLookupRequest", "ZipCodeLookupResponse",
     "Address"},
    {AddressCall::City, "CityStateLookup", "CityStateLookupRequest", "CityStateLookupResponse",
     "ZipCode"},
};

// Returns the words of a call.
inline const CallWords& WordsOf(AddressCall call) {
  return *std::find_if(std::begin(kAddressCalls), std::end(kAddressCalls) - 1,
                       [call](const CallWords& words) { return words.call == call; });
}

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_PROTOCOL_ADDRESSCALL_H_
