#ifndef POSTWRIGHT_TESTS_SERVICE_UPSTREAM_POSTALSTANDIN_H_
#define POSTWRIGHT_TESTS_SERVICE_UPSTREAM_POSTALSTANDIN_H_

#include <condition_variable>
#include <map>
#include <mutex>
#include <optional>
#include <string>

#include "tests/support/LoopbackServer.h"

namespace postwright::service {

// The postal service's API as far as it is known from its description and from recorded replies: a
// token endpoint and the Addresses endpoint.
//
//   PostalStandIn api;
//   api.Say("12 MAIN ST", 200, PostalStandIn::Found("12 MAIN ST"));
//   PostalApiUpstream upstream(api.Url(), …);
//
// It knows client "id" with secret "secret". One request at a time; what holds one holds all.
class PostalStandIn {
 public:
  PostalStandIn();

  std::string Url() const { return "http://" + server_.GetEndpoint(); }

  // The reply to an address, told by its streetAddress; 404 for one that nothing was said of.
  void Say(const std::string& street, int status, const std::string& body,
           const std::string& headers = "");
  // Bytes in the place of a whole response to any address.
  void Break(const std::string& bytes);

  void EndTokens();                      // those that were given are good no more
  void SetTokenReply(std::string json);  // in which @ stands for the token; empty: 503
  void Hold();                           // addresses wait until Release
  void Release();

  int Tokens() const;     // token requests so far
  int Addresses() const;  // address requests so far, whatever their answer

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
