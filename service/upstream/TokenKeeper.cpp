#include "service/upstream/TokenKeeper.h"

#include <algorithm>
#include <charconv>

#include "service/upstream/Json.h"

namespace postwright::service {
namespace {

constexpr size_t kLongestToken = 8192;
constexpr std::chrono::seconds kUsualLife = std::chrono::hours(1);  // where the reply does not say
constexpr std::chrono::seconds kLongestLife = std::chrono::hours(24 * 31);
constexpr std::chrono::seconds kPauseAfterFailure(60);  // while the old token is still good

// Whether `text` can be part of a header.
bool IsToken(const std::string& text) {
  return !text.empty() && text.size() <= kLongestToken &&
         std::all_of(text.begin(), text.end(), [](char c) { return c > ' ' && c <= '~'; });
}

std::chrono::seconds LifeOf(const nlohmann::json& reply) {
  const std::string text = JsonText(reply, "expires_in");
  long seconds = 0;
  std::from_chars(text.data(), text.data() + text.size(), seconds);
  return seconds > 0 ? std::min(kLongestLife, std::chrono::seconds(seconds)) : kUsualLife;
}

}  // namespace

TokenKeeper::TokenKeeper(std::string url, Credentials credentials, HttpClient& client,
                         const Clock& clock)
    : url_(std::move(url)), client_(client), clock_(clock), credentials_(std::move(credentials)) {}

TokenKeeper::Result TokenKeeper::Get() {
  return Find("");
}

TokenKeeper::Result TokenKeeper::Replace(const std::string& refused) {
  return Find(refused);
}

void TokenKeeper::SetCredentials(Credentials credentials) {
  const std::lock_guard lock(mutex_);
  credentials_ = std::move(credentials);
  token_ = {};
  ++credentialsGiven_;
}

TokenKeeper::Result TokenKeeper::Find(const std::string& refused) {
  std::unique_lock lock(mutex_);
  const size_t before = fetches_;
  fetched_.wait(lock, [&] { return !isFetching_ || IsGood(refused); });
  if (IsGood(refused) && (isFetching_ || clock_.Now() < token_.renewAt)) {
    return token_.text;
  }
  if (fetches_ != before) {  // the fetch that this call has waited for is that of all who waited
    return IsGood(refused) ? Result(token_.text) : Result(lastFault_);
  }
  return Renew(lock, refused);
}

TokenKeeper::Result TokenKeeper::Renew(std::unique_lock<std::mutex>& lock,
                                       const std::string& refused) {
  const Credentials credentials = credentials_;
  const size_t given = credentialsGiven_;
  isFetching_ = true;
  lock.unlock();
  std::variant<Token, UpstreamFault> fetched = Fetch(credentials);
  lock.lock();
  isFetching_ = false;
  ++fetches_;
  fetched_.notify_all();
  if (auto* const token = std::get_if<Token>(&fetched)) {
    lastFault_ = {FaultKind::Unauthorised, {}, "token: the one that was refused came again"};
    if (given == credentialsGiven_) {
      token_ = *token;
    }
    return token->text;
  }
  lastFault_ = std::get<UpstreamFault>(fetched);
  token_.renewAt = clock_.Now() + kPauseAfterFailure;
  return IsGood(refused) ? Result(token_.text) : Result(lastFault_);
}

bool TokenKeeper::IsGood(const std::string& refused) const {
  return !token_.text.empty() && token_.text != refused && clock_.Now() < token_.end;
}

// Asks for no scope: the token that comes of it is good for less than one without.
std::variant<TokenKeeper::Token, UpstreamFault> TokenKeeper::Fetch(
    const Credentials& credentials) try {
  const nlohmann::json body = {{"client_id", credentials.clientId},
                               {"client_secret", credentials.clientSecret},
                               {"grant_type", "client_credentials"}};
  const Clock::Time asked = clock_.Now();
  const auto answer = client_.Send(
      {url_, {"Content-Type: application/json", "Accept: application/json"}, body.dump()});
  if (const auto* failure = std::get_if<HttpClient::Failure>(&answer)) {
    return UpstreamFault{failure->kind, {}, "token: " + failure->detail};
  }
  return Read(std::get<HttpAnswer>(answer), asked);
} catch (const std::exception& failure) {
  // No memory, or no handle: the address stays unanswered, the next call tries again.
  return UpstreamFault{FaultKind::BadReply, {}, std::string("token: ") + failure.what()};
}

// By our own clock from the moment of asking: `issued_at` is the server's.
std::variant<TokenKeeper::Token, UpstreamFault> TokenKeeper::Read(const HttpAnswer& answer,
                                                                  Clock::Time asked) const {
  constexpr int kOk = 200;
  constexpr int kBadRequest = 400;  // RFC 6749 section 5.2: what an unknown client is told
  if (answer.status != kOk) {
    UpstreamFault fault = FaultOfStatus(answer);
    fault.kind = answer.status == kBadRequest ? FaultKind::Unauthorised : fault.kind;
    fault.detail = "token: " + fault.detail;
    return fault;
  }
  const auto reply = ParseJsonObject(answer.body);
  const std::string text = reply ? JsonText(*reply, "access_token") : "";
  if (!IsToken(text)) {
    return UpstreamFault{FaultKind::BadReply, {}, "token: the reply holds none"};
  }
  const std::chrono::seconds life = LifeOf(*reply);
  return Token{text, asked + life * 9 / 10, asked + life};
}

}  // namespace postwright::service
