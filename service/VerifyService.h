#ifndef POSTWRIGHT_SERVICE_VERIFYSERVICE_H_
#define POSTWRIGHT_SERVICE_VERIFYSERVICE_H_

#include <string>
#include <string_view>

#include "service/Verifier.h"
#include "service/address/ZipBase.h"
#include "service/http/HttpServer.h"

namespace postwright::service {

// The Verify interface as an HTTP handler: GET or POST /ShippingAPI.dll?API=Verify&XML=…
//
//   VerifyService service(base, {});
//   HttpServer server(address, {}, [&](const HttpRequest& request) { return
//   service.Answer(request); });
//
// Every answer to the interface's own path is HTTP 200, errors too: clients of the interface look
// at the document. Borrows the base. Any thread may call Answer.
class VerifyService {
 public:
  struct Options {
    std::string pathPrefix;     // in front of /ShippingAPI.dll, as in "/usps"; empty for none
    bool logAddresses = false;  // the note of an answer tells the address, not only its outcome
  };

  VerifyService(const ZipBase& base, Options options);

  HttpReply Answer(const HttpRequest& request) const;

 private:
  HttpReply AnswerVerify(std::string_view document) const;
  std::string Note(const VerifyRequest& request, const std::vector<ReplyAddress>& replies) const;

  Verifier verifier_;
  Options options_;
};

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_VERIFYSERVICE_H_
