#ifndef POSTWRIGHT_SERVICE_UPSTREAM_VERIFYXML_H_
#define POSTWRIGHT_SERVICE_UPSTREAM_VERIFYXML_H_

#include <string>
#include <string_view>

#include "service/upstream/Upstream.h"

namespace postwright::service {

// The documents of the Verify interface from the client's side. Pure, for any thread.
namespace VerifyXml {

// Returns the request for one normal address, with <Revision>1</Revision> where its call has that,
// and the elements in the order that the interface insists on. `password` is left out where it is
// empty.
std::string Compose(const RequestAddress& normal, std::string_view userId,
                    std::string_view password);

// Returns what a reply to one address says. A reply that is no such document, holds no address, is
// longer than an answer to five or nests deeper than one is a fault. `candidates`, where it is not
// null, takes those that stand in it.
UpstreamAnswer Read(std::string_view document,
                    std::vector<postal::Candidate>* candidates = nullptr);

}  // namespace VerifyXml
}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_UPSTREAM_VERIFYXML_H_
