#ifndef POSTWRIGHT_SERVICE_STATUS_STATUSPAGES_H_
#define POSTWRIGHT_SERVICE_STATUS_STATUSPAGES_H_

#include <optional>
#include <string>
#include <vector>

#include "service/VerifyService.h"
#include "service/gateway/AnswerCache.h"
#include "service/gateway/FallbackSource.h"
#include "service/gateway/Gateway.h"
#include "service/http/HttpMessage.h"
#include "service/upstream/Clock.h"

namespace postwright::service {

// The service's state: GET /status for people, GET /metrics for Prometheus (text format 0.0.4).
//
//   const StatusPages pages({service.Counts(), &gateway, &cache, nullptr}, clock, "1.0",
//                           {"127.0.0.1"});
//   if (auto reply = pages.Answer(request)) { respond(std::move(*reply)); }
//
// Neither holds an address or anything else that a client wrote. They are shown to clients on the
// same machine alone that ask for it by a name of loopback or by the address that is listened on: a
// page of the Web whose name has come to mean 127.0.0.1 asks for its own name. Nor are they shown
// to those that a proxy there asks for. Any thread.
class StatusPages {
 public:
  // What is shown; the pointers are null for what the service does without.
  struct Sources {
    const TrafficCounts& traffic;
    Gateway* gateway = nullptr;
    AnswerCache* cache = nullptr;
    FallbackSource* fallback = nullptr;
  };

  // Whom the pages are shown to, by the host that a request names, without its port.
  struct Access {
    std::string host;                      // that is listened on
    std::vector<std::string> openTo = {};  // hosts that every client may ask for
  };

  // `version` is the program's. The sources and the clock are borrowed.
  StatusPages(const Sources& sources, const Clock& clock, std::string version, Access access);

  // Returns nullopt for a path that is none of the two.
  std::optional<HttpReply> Answer(const HttpRequest& request) const;

 private:
  bool IsAllowed(const HttpRequest& request) const;
  std::string Status() const;
  std::string Metrics() const;

  const Sources sources_;
  const Clock& clock_;
  const std::string version_;
  const Access access_;
  const Clock::Time started_;
};

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_STATUS_STATUSPAGES_H_
