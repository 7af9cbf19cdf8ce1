#ifndef POSTWRIGHT_TESTS_SERVICE_UPSTREAM_POSTALSTANDIN_H_
#define POSTWRIGHT_TESTS_SERVICE_UPSTREAM_POSTALSTANDIN_H_

#include <condition_variable>
#include <map>
#include <mutex>
#include <optional>
#include <string>

#include "tests/support/LoopbackServer.h"

namespace postwright::service {

// The postal service's API, as known from its description and from recorded replies: a token
// endpoint and the Addresses endpoint.
//
//   PostalStandIn api;
//   api.Say("12 MAIN ST", 200, PostalStandIn::Found("12 MAIN ST"));
//   PostalApiUpstream upstream(api.Url(), …);
//
// It knows the client "id" with the secret "secret". It serves one request at a time, so holding
// one holds all.
class PostalStandIn {
 public:
  PostalStandIn();

  std::string Url() const { return "http://" + server_.GetEndpoint(); }

  // Sets the reply to an address with this streetAddress; any other gets 404.
  void Say(const std::string& street, int status, const std::string& body,
           const std::string& headers = "");
  // Sends these bytes instead of a response, to any address.
  void Break(const std::string& bytes);

  void EndTokens();                      // tokens given so far become invalid
  void SetTokenReply(std::string json);  // @ stands for the token; empty: 503
  void Hold();                           // addresses wait until Release
  void Release();

  int Tokens() const;     // token requests so far
  int Addresses() const;  // address requests so far, with any answer

  // A reply of the API for a clean hit, with `street` in it.
  static std::string Found(const std::string& street);
  // The API's errors: with the message and one entry of `errors`, both JSON texts.
  static std::string Error(const std::string& code, const std::string& message,
                           const std::string& entries);

 private:
  using Answer = LoopbackServer::Answer;

  Answer Reply(const std::string& request);
  std::string TokenReply(const std::string& request);
  std::string AddressReply(const std::string& query, const std::string& request);

  mutable std::mutex mutex_;
  std::condition_variable released_;
  bool isHeld_ = false;
  std::map<std::string, std::string> replies_;
  std::optional<std::string> broken_;
  std::string tokenReply_;
  std::string token_;
  int tokens_ = 0;
  int addresses_ = 0;
  LoopbackServer server_;
};

}  // namespace postwright::service

#endif  // POSTWRIGHT_TESTS_SERVICE_UPSTREAM_POSTALSTANDIN_H_
