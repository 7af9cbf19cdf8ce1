#ifndef POSTWRIGHT_SERVICE_UPSTREAM_TOKENKEEPER_H_
#define POSTWRIGHT_SERVICE_UPSTREAM_TOKENKEEPER_H_

#include <condition_variable>
#include <mutex>
#include <string>
#include <variant>

#include "service/upstream/Clock.h"
#include "service/upstream/Credentials.h"
#include "service/upstream/HttpClient.h"
#include "service/upstream/Upstream.h"

namespace postwright::service {

// Keeps the access token of the postal API (OAuth 2.0 client credentials, RFC 6749 section 4.4).
//
//   const auto token = keeper.Get();
//   … a call is turned down with 401 …
//   const auto other = keeper.Replace(std::get<std::string>(token));
//
// A token is fetched by the first call that needs one, and a new one by a call in the last tenth of
// its life, while the others go on with the old. One fetch at a time: it is said that a new token
// ends the one before it, and every fetch counts against a quota of its own. Borrows the client and
// the clock. Any number of threads at once; a call waits for a fetch under way only where it has no
// token to go on with.
class TokenKeeper {
 public:
  using Result = std::variant<std::string, UpstreamFault>;

  TokenKeeper(std::string url, Credentials credentials, HttpClient& client, const Clock& clock);

  // Returns a token, or why there is none.
  Result Get();

  // Returns another token than `refused`, which the API did not take: the one that came in its
  // place since, or a new one.
  Result Replace(const std::string& refused);

  // Fetches the next token with other credentials.
  void SetCredentials(Credentials credentials);

 private:
  struct Token {
    std::string text;
    Clock::Time renewAt;
    Clock::Time end;
  };

  Result Find(const std::string& refused);
  Result Renew(std::unique_lock<std::mutex>& lock, const std::string& refused);
  bool IsGood(const std::string& refused) const;
  std::variant<Token, UpstreamFault> Fetch(const Credentials& credentials);
  std::variant<Token, UpstreamFault> Read(const HttpAnswer& answer, Clock::Time asked) const;

  const std::string url_;
  HttpClient& client_;
  const Clock& clock_;

  std::mutex mutex_;
  std::condition_variable fetched_;
  Credentials credentials_;
  size_t credentialsGiven_ = 0;
  Token token_;
  bool isFetching_ = false;
  size_t fetches_ = 0;       // that have ended
  UpstreamFault lastFault_;  // of the last of them, where it failed
};

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_UPSTREAM_TOKENKEEPER_H_
