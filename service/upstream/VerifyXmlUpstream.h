#ifndef POSTWRIGHT_SERVICE_UPSTREAM_VERIFYXMLUPSTREAM_H_
#define POSTWRIGHT_SERVICE_UPSTREAM_VERIFYXMLUPSTREAM_H_

#include <mutex>
#include <string>
#include <string_view>

#include "service/upstream/Credentials.h"
#include "service/upstream/HttpClient.h"
#include "service/upstream/Upstream.h"

namespace postwright::service {

// A partner that still speaks the Verify interface.
//
//   VerifyXmlUpstream upstream("https://verify.example.com", "partner.credentials", {});
//
// One call an address, always for the long form of the answer, from which the short one follows.
// Candidates are asked for as clients ask us; a partner that knows nothing of them names none.
class VerifyXmlUpstream final : public Upstream {
 public:
  static constexpr std::string_view kKind = "verify-xml";

  // `url` is what comes before /ShippingAPI.dll. Throws CredentialsError where `credentials`
  // cannot be used or lacks user_id.
  VerifyXmlUpstream(const std::string& url, std::string credentials,
                    const HttpClient::Limits& limits);

  const std::string& Name() const override { return name_; }
  bool OffersCandidates() const override { return true; }
  UpstreamOutcome Ask(const RequestAddress& normal) override;
  void ReloadCredentials() override;
  void Stop() override { client_.Stop(); }

 private:
  Credentials GetCredentials() const;

  const std::string name_;
  const std::string url_;
  const std::string credentialsFile_;
  HttpClient client_;
  mutable std::mutex mutex_;
  Credentials credentials_;
};

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_UPSTREAM_VERIFYXMLUPSTREAM_H_
