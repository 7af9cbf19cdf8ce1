#include "tests/service/upstream/PostalStandIn.h"

#include "service/http/FormFields.h"

namespace postwright::service {
namespace {

std::string Response(int status, const std::string& body, const std::string& headers = "") {
  return "HTTP/1.1 " + std::to_string(status) + " Status\r\nContent-Type: application/json\r\n" +
         headers + "Content-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body;
}

}  // namespace

PostalStandIn::PostalStandIn()
    : tokenReply_(R"({"access_token":"@","token_type":"Bearer","issued_at":"1764046800000",)"
                  R"("expires_in":"28799","status":"approved","scope":"addresses"})"),
      server_([this](const std::string& request) { return Reply(request); }) {}

void PostalStandIn::Say(const std::string& street, int status, const std::string& body,
                        const std::string& headers) {
  const std::lock_guard lock(mutex_);
  replies_[street] = Response(status, body, headers);
}

void PostalStandIn::Break(const std::string& bytes) {
  const std::lock_guard lock(mutex_);
  broken_ = bytes;
}

void PostalStandIn::EndTokens() {
  const std::lock_guard lock(mutex_);
  token_.clear();
}

void PostalStandIn::SetTokenReply(std::string json) {
  const std::lock_guard lock(mutex_);
  tokenReply_ = std::move(json);
}

void PostalStandIn::Hold() {
  const std::lock_guard lock(mutex_);
  isHeld_ = true;
}

void PostalStandIn::Release() {
  const std::lock_guard lock(mutex_);
  isHeld_ = false;
  released_.notify_all();
}

int PostalStandIn::Tokens() const {
  const std::lock_guard lock(mutex_);
  return tokens_;
}

int PostalStandIn::Addresses() const {
  const std::lock_guard lock(mutex_);
  return addresses_;
}

std::string PostalStandIn::Found(const std::string& street) {
  return R"({"firm":null,"address":{"streetAddress":")" + street +
         R"(","streetAddressAbbreviation":null,"secondaryAddress":"","cityAbbreviation":null,)"
         R"("city":"SPRINGFIELD","state":"IL","ZIPCode":"62701","ZIPPlus4":"1103",)"
         R"("urbanization":null},"additionalInfo":{"deliveryPoint":"11","carrierRoute":"C003",)"
         R"("DPVConfirmation":"Y","DPVCMRA":"N","business":"Y","centralDeliveryPoint":"N",)"
         R"("vacant":"N"},"corrections":[{"code":"","text":""}],)"
         R"("matches":[{"code":"31","text":"Single Response - exact match"}]})";
}

std::string PostalStandIn::Error(const std::string& code, const std::string& message,
                                 const std::string& entries) {
  return R"({"apiVersion":"/addresses/v3/","error":{"code":")" + code + R"(","message":")" +
         message + R"(","errors":[)" + entries + "]}}";
}

LoopbackServer::Answer PostalStandIn::Reply(const std::string& request) {
  std::unique_lock lock(mutex_);
  if (request.starts_with("POST /oauth2/v3/token HTTP/1.1\r\n")) {
    return {TokenReply(request)};
  }
  const std::string path = "GET /addresses/v3/address?";
  if (!request.starts_with(path)) {
    return {Response(404, "<html>Not Found</html>")};
  }
  ++addresses_;
  released_.wait(lock, [this] { return !isHeld_; });
  if (broken_) {
    return {*broken_, true};
  }
  return {AddressReply(request.substr(path.size(), request.find(' ', path.size()) - path.size()),
                       request)};
}

std::string PostalStandIn::TokenReply(const std::string& request) {
  ++tokens_;
  if (request.find(R"("client_id":"id","client_secret":"secret",)"
                   R"("grant_type":"client_credentials")") == std::string::npos) {
    return Response(401,
                    R"({"error":"invalid_client","error_description":"Client secret invalid"})");
  }
  if (tokenReply_.empty()) {
    return Response(503, "");
  }
  token_ = "token-" + std::to_string(tokens_);
  std::string reply = tokenReply_;
  if (const size_t at = reply.find('@'); at != std::string::npos) {
    reply.replace(at, 1, token_);
  }
  return Response(200, reply);
}

std::string PostalStandIn::AddressReply(const std::string& query, const std::string& request) {
  if (token_.empty() ||
      request.find("\r\nAuthorization: Bearer " + token_ + "\r\n") == std::string::npos) {
    return Response(401, Error("401", "Missing or malformed access token.",
                               R"({"title":"invalid_token","source":"Access Token"})"));
  }
  const auto found = replies_.find(std::string(*FormFields(query).Find("streetAddress")));
  return found != replies_.end()
             ? found->second
             : Response(404, R"({"apiVersion":"v1","error":{"code":"404","message":)"
                             R"("There is no match for the address requested.","errors":[]}})");
}

}  // namespace postwright::service
