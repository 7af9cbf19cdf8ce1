#include "service/upstream/UpstreamKinds.h"

#include <algorithm>
#include <iterator>

#include "service/upstream/PostalApiUpstream.h"
#include "service/upstream/UpstreamUrl.h"
#include "service/upstream/VerifyXmlUpstream.h"

namespace postwright::service {
namespace {

std::unique_ptr<Upstream> MakePostalApi(const UpstreamParts& parts) {
  return std::make_unique<PostalApiUpstream>(parts.url, parts.credentials, parts.zips, parts.clock,
                                             HttpClient::Limits());
}

std::unique_ptr<Upstream> MakeVerifyXml(const UpstreamParts& parts) {
  return std::make_unique<VerifyXmlUpstream>(parts.url, parts.credentials, HttpClient::Limits());
}

constexpr UpstreamKind kKinds[] = {
    {PostalApiUpstream::kKind, "the postal service's Addresses API", false, "https://apis.usps.com",
     &ReadUpstreamUrl, &MakePostalApi},
    {VerifyXmlUpstream::kKind, "a service that still speaks the old form", true, "",
     &ReadPartnerUrl, &MakeVerifyXml},
};

}  // namespace

std::span<const UpstreamKind> UpstreamKinds() {
  return kKinds;
}

const UpstreamKind* FindUpstreamKind(std::string_view name) {
  const auto* const found = std::ranges::find(kKinds, name, &UpstreamKind::name);
  return found == std::end(kKinds) ? nullptr : found;
}

}  // namespace postwright::service
