#ifndef POSTWRIGHT_SERVICE_UPSTREAM_POSTALAPIUPSTREAM_H_
#define POSTWRIGHT_SERVICE_UPSTREAM_POSTALAPIUPSTREAM_H_

#include <string>
#include <string_view>

#include "service/upstream/HttpClient.h"
#include "service/upstream/TokenKeeper.h"
#include "service/upstream/Upstream.h"
#include "service/upstream/Zips.h"

namespace postwright::service {

// The postal service's Addresses API, version 3, with OAuth 2.0.
//
//   PostalApiUpstream upstream("https://apis.usps.com", "/etc/postwright/postal.credentials", zips,
//                              clock, {});
//   const UpstreamOutcome outcome = upstream.Ask(normal);
//
// One call an address. A call that is turned down with 401 gets one new token and is made once
// more. Borrows the clock.
class PostalApiUpstream final : public Upstream {
 public:
  static constexpr std::string_view kKind = "postal-v3";

  // `url` is the API's host with its scheme and without a slash at the end. Throws CredentialsError
  // where `credentials` cannot be used or lacks client_id or client_secret.
  PostalApiUpstream(const std::string& url, std::string credentials, Zips zips, const Clock& clock,
                    const HttpClient::Limits& limits);

  const std::string& Name() const override { return name_; }
  UpstreamOutcome Ask(const RequestAddress& normal) override;
  void ReloadCredentials() override;
  void Stop() override { client_.Stop(); }

 private:
  UpstreamOutcome Call(const RequestAddress& normal, const std::string& token);

  const std::string name_;
  const std::string addressesUrl_;
  const std::string credentialsFile_;
  const Zips zips_;
  HttpClient client_;
  TokenKeeper tokens_;
};

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_UPSTREAM_POSTALAPIUPSTREAM_H_
