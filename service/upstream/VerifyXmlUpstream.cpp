#include "service/upstream/VerifyXmlUpstream.h"

#include "common/SmallText.h"
#include "service/upstream/VerifyXml.h"

namespace postwright::service {
namespace {

Credentials LoadCredentials(const std::string& file) {
  Credentials credentials = Credentials::Load(file);
  if (credentials.userId.empty()) {
    throw CredentialsError(file + ": needs user_id");
  }
  return credentials;
}

}  // namespace

VerifyXmlUpstream::VerifyXmlUpstream(const std::string& url, std::string credentials,
                                     const HttpClient::Limits& limits)
    : name_(std::string(kKind) + " " + url),
      url_(url + "/ShippingAPI.dll?API="),
      credentialsFile_(std::move(credentials)),
      client_(limits),
      credentials_(LoadCredentials(credentialsFile_)) {}

UpstreamOutcome VerifyXmlUpstream::Ask(const RequestAddress& normal) {
  constexpr int kOk = 200;
  const Credentials credentials = GetCredentials();
  const std::string document = VerifyXml::Compose(normal, credentials.userId, credentials.password);
  std::vector<std::string> headers = {"Accept: text/xml"};
  if (normal.candidates > 0) {
    headers.push_back(std::string(kCandidatesHeader) + ": " + std::to_string(normal.candidates));
  }
  const std::string query = std::string(WordsOf(normal.call).api) + "&XML=" + EscapeQuery(document);
  const auto answer = client_.Send({url_ + query, std::move(headers)});
  if (const auto* failure = std::get_if<HttpClient::Failure>(&answer)) {
    return {UpstreamFault{failure->kind, {}, failure->detail}, failure->calls};
  }
  const auto& reply = std::get<HttpAnswer>(answer);
  if (reply.status != kOk) {
    return {FaultOfStatus(reply), reply.calls};
  }
  UpstreamOutcome outcome{UpstreamFault{}, reply.calls};
  std::vector<postal::Candidate> candidates;
  outcome.answer = VerifyXml::Read(reply.body, &candidates);
  if (normal.candidates > 0) {  // only those who asked for candidates get them
    outcome.candidates = std::move(candidates);
  }
  return outcome;
}

void VerifyXmlUpstream::ReloadCredentials() {
  Credentials credentials = LoadCredentials(credentialsFile_);
  const std::lock_guard lock(mutex_);
  credentials_ = std::move(credentials);
}

Credentials VerifyXmlUpstream::GetCredentials() const {
  const std::lock_guard lock(mutex_);
  return credentials_;
}

}  // namespace postwright::service
