#ifndef POSTWRIGHT_SERVICE_UPSTREAM_POSTALAPI_H_
#define POSTWRIGHT_SERVICE_UPSTREAM_POSTALAPI_H_

#include <string>

#include "postal/places/ZipList.h"
#include "service/upstream/HttpClient.h"
#include "service/upstream/Upstream.h"

namespace postwright::service {

// The words of the postal service's Addresses API, version 3 (GET /addresses/v3/address), and what
// they mean in those of the Verify interface. docs/gateway.md is the table of both directions.
// Pure, for any thread.
namespace PostalApi {

// Returns the query for a normal address: "streetAddress=12%20MAIN%20ST&city=AUSTIN&state=TX".
// Fields that are empty are left out, the API turns them down; so is a firm that is too long for
// it.
std::string QueryFor(const RequestAddress& normal);

// Returns what the API has answered to the query for `normal`. The long form of a city that it
// abbreviated comes from the base.
UpstreamAnswer Read(const HttpAnswer& answer, const RequestAddress& normal,
                    const postal::ZipList& base);

}  // namespace PostalApi
}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_UPSTREAM_POSTALAPI_H_
