#ifndef POSTWRIGHT_SERVICE_VERIFYSERVICE_H_
#define POSTWRIGHT_SERVICE_VERIFYSERVICE_H_

#include <array>
#include <atomic>
#include <cstdint>
#include <numeric>
#include <string>
#include <string_view>

#include "common/Histogram.h"
#include "postal/places/Rejection.h"
#include "service/AnswerSource.h"
#include "service/UserList.h"
#include "service/http/HttpMessage.h"

namespace postwright::service {

// What became of the documents and addresses since the start.
struct TrafficCounts {
  std::atomic<uint64_t> documents = 0;  // that could be read and were answered
  std::atomic<uint64_t> unreadable = 0;
  std::atomic<uint64_t> strangers = 0;  // of a user who is not on the list
  std::atomic<uint64_t> found = 0;      // addresses, as the two below
  std::array<std::atomic<uint64_t>, postal::kRejections> rejected = {};  // by postal::Rejection
  std::atomic<uint64_t> unanswered = 0;
  // That an answered document took, from its arrival to its reply.
  Histogram seconds{{0.0001, 0.00025, 0.0005, 0.001, 0.0025, 0.01, 0.1, 1, 5, 20}};

  uint64_t Rejected() const {
    return std::accumulate(rejected.begin(), rejected.end(), uint64_t{0});
  }
};

// The address calls of the interface as an HTTP handler: GET or POST
// /ShippingAPI.dll?API=Verify&XML=…, and the same with ZipCodeLookup and CityStateLookup. Clients
// write the path in any case.
//
//   Verifier source(base);
//   VerifyService service(source, nullptr, {});
//   HttpServer server(address, {}, std::bind_front(&VerifyService::Answer, &service), log);
//
// Every answer to the interface's own path is HTTP 200, errors too: clients of the interface look
// at the document. Borrows the source and the users. Any thread may call Answer.
class VerifyService {
 public:
  struct Options {
    std::string pathPrefix;     // in front of /ShippingAPI.dll, as in "/usps"; empty for none
    bool takesNotes = true;     // for the log; without, an answer to a document has none
    bool logAddresses = false;  // the note of an answer tells the address, not only its outcome
  };

  // `users` may be null: then everybody who gives a USERID is answered.
  VerifyService(AnswerSource& source, const UserList* users, Options options);

  // Stops the source.
  ~VerifyService();
  VerifyService(const VerifyService&) = delete;
  VerifyService& operator=(const VerifyService&) = delete;

  // Answers when the source has answered every address of the document, at once or later; never
  // waits.
  void Answer(const HttpRequest& request, const Respond& respond);

  const TrafficCounts& Counts() const { return counts_; }

 private:
  struct Document;  // a request and its answers so far

  // Who sent a request, and what its head wants.
  struct Asker {
    std::string client;
    size_t candidates;
    bool wantsSource;
  };

  void AnswerCall(AddressCall call, std::string_view text, const Asker& from,
                  const Respond& respond);
  void Finish(const Document& document);
  std::string Note(const Document& document) const;

  AnswerSource& source_;
  const UserList* const users_;
  const Options options_;
  const std::string path_;
  TrafficCounts counts_;
};

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_VERIFYSERVICE_H_
