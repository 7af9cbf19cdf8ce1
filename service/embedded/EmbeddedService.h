#ifndef POSTWRIGHT_SERVICE_EMBEDDED_EMBEDDEDSERVICE_H_
#define POSTWRIGHT_SERVICE_EMBEDDED_EMBEDDEDSERVICE_H_

#include <postwright/LocalAnswers.h>

#include <filesystem>
#include <string>
#include <vector>

#include "service/LocalSource.h"
#include "service/VerifyService.h"

namespace postwright::service {

// The Verify service without a server: takes what a client would have sent, and gives what it would
// have received.
//
//   EmbeddedService service({"us-zips.tsv"});
//   service.Answer("http://any.example/ShippingAPI.dll?API=Verify&XML=...", {}).body;
//
// Any thread may call Answer, in a child of the process that made the object too.
class EmbeddedService {
 public:
  // As LocalSource; throws ZipListError, too, where the files hold no ZIP codes.
  explicit EmbeddedService(std::vector<std::filesystem::path> files);

  // Answers a GET of `url`, whose host does not matter, with these fields in its head.
  LocalAnswer Answer(const std::string& url, const std::vector<std::string>& headers);

 private:
  LocalSource source_;
  VerifyService service_;
};

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_EMBEDDED_EMBEDDEDSERVICE_H_
