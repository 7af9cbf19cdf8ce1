#include "service/upstream/PostalApiUpstream.h"

#include "service/upstream/Credentials.h"
#include "service/upstream/PostalApi.h"

namespace postwright::service {
namespace {

Credentials LoadCredentials(const std::string& file) {
  Credentials credentials = Credentials::Load(file);
  if (credentials.clientId.empty() || credentials.clientSecret.empty()) {
    throw CredentialsError(file + ": needs client_id and client_secret");
  }
  return credentials;
}

bool IsUnauthorised(const UpstreamOutcome& outcome) {
  const auto* const fault = std::get_if<UpstreamFault>(&outcome.answer);
  return fault != nullptr && fault->kind == FaultKind::Unauthorised;
}

}  // namespace

PostalApiUpstream::PostalApiUpstream(const std::string& url, std::string credentials, Zips zips,
                                     const Clock& clock, const HttpClient::Limits& limits)
    : name_(std::string(kKind) + " " + url),
      addressesUrl_(url + "/addresses/v3/"),
      credentialsFile_(std::move(credentials)),
      zips_(std::move(zips)),
      client_(limits),
      tokens_(url + "/oauth2/v3/token", LoadCredentials(credentialsFile_), client_, clock) {}

UpstreamOutcome PostalApiUpstream::Ask(const RequestAddress& normal) {
  TokenKeeper::Result token = tokens_.Get();
  if (const auto* fault = std::get_if<UpstreamFault>(&token)) {
    return {*fault, 0};
  }
  UpstreamOutcome outcome = Call(normal, std::get<std::string>(token));
  if (!IsUnauthorised(outcome)) {
    return outcome;
  }
  token = tokens_.Replace(std::get<std::string>(token));
  if (const auto* fault = std::get_if<UpstreamFault>(&token)) {
    return {*fault, outcome.calls};
  }
  const size_t before = outcome.calls;
  outcome = Call(normal, std::get<std::string>(token));
  outcome.calls += before;
  return outcome;
}

void PostalApiUpstream::ReloadCredentials() {
  tokens_.SetCredentials(LoadCredentials(credentialsFile_));
}

UpstreamOutcome PostalApiUpstream::Call(const RequestAddress& normal, const std::string& token) {
  const auto answer =
      client_.Send({addressesUrl_ + PostalApi::ResourceFor(normal),
                    {"Authorization: Bearer " + token, "Accept: application/json"}});
  if (const auto* failure = std::get_if<HttpClient::Failure>(&answer)) {
    return {UpstreamFault{failure->kind, {}, failure->detail}, failure->calls};
  }
  const auto& reply = std::get<HttpAnswer>(answer);
  UpstreamOutcome outcome{PostalApi::Read(reply, normal, *zips_()), reply.calls};
  // The API says of every address that it verifies whether mail can be delivered there.
  const auto* const fields = std::get_if<ReplyFields>(&outcome.answer);
  outcome.isComplete =
      fields == nullptr || normal.call != AddressCall::Verify || !fields->dpvConfirmation.empty();
  return outcome;
}

}  // namespace postwright::service
