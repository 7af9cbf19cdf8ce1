#ifndef POSTWRIGHT_SERVICE_UPSTREAM_POSTALAPI_H_
#define POSTWRIGHT_SERVICE_UPSTREAM_POSTALAPI_H_

#include <string>

#include "postal/places/ZipList.h"
#include "service/upstream/HttpClient.h"
#include "service/upstream/Upstream.h"

namespace postwright::service {

// The words of the postal service's Addresses API, version 3 (GET /addresses/v3/address, …/zipcode,
// …/city-state), and what they mean in those of the Verify interface. docs/gateway.md is the table
// of both directions. Pure, for any thread.
namespace PostalApi {

// Returns what is asked for about a normal address, below /addresses/v3/:
// "address?streetAddress=12%20MAIN%20ST&city=AUSTIN&state=TX". Its ZIP+4 is asked for in the same
// way where it has no city, which the API wants for that. Fields that are empty are left out, the
// API turns them down; so is a firm that is too long for it.
std::string ResourceFor(const RequestAddress& normal);

// Returns what the API has answered to what was asked about `normal`. The long form of a city that
// it abbreviated comes from the base.
UpstreamAnswer Read(const HttpAnswer& answer, const RequestAddress& normal,
                    const postal::ZipList& base);

}  // namespace PostalApi
}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_UPSTREAM_POSTALAPI_H_
