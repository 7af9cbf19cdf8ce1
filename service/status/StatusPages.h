#ifndef POSTWRIGHT_SERVICE_STATUS_STATUSPAGES_H_
#define POSTWRIGHT_SERVICE_STATUS_STATUSPAGES_H_

#include <optional>
#include <string>

#include "service/VerifyService.h"
#include "service/gateway/AnswerCache.h"
#include "service/gateway/FallbackSource.h"
#include "service/gateway/Gateway.h"
#include "service/http/HostAccess.h"
#include "service/http/HttpMessage.h"
#include "service/upstream/Clock.h"

namespace postwright::service {

// The service's state: GET /status for people, GET /metrics for Prometheus (text format 0.0.4).
//
//   const StatusPages pages({service.Counts(), &gateway, &cache, nullptr}, clock, "1.0",
//                           {"127.0.0.1"});
//   if (auto reply = pages.Answer(request)) { respond(std::move(*reply)); }
//
// Neither holds an address or anything else that a client wrote. Any thread.
class StatusPages {
 public:
  // What is shown; the pointers are null for what the service does without.
  struct Sources {
    const TrafficCounts& traffic;
    Gateway* gateway = nullptr;
    AnswerCache* cache = nullptr;
    FallbackSource* fallback = nullptr;
    const TrafficCounts* people = nullptr;  // what was asked on the page for people
  };

  // `version` is the program's. The sources and the clock are borrowed.
  StatusPages(const Sources& sources, const Clock& clock, std::string version, HostAccess access);

  // Returns nullopt for a path that is none of the two.
  std::optional<HttpReply> Answer(const HttpRequest& request) const;

 private:
  std::string Status() const;
  std::string Metrics() const;

  const Sources sources_;
  const Clock& clock_;
  const std::string version_;
  const HostAccess access_;
  const Clock::Time started_;
};

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_STATUS_STATUSPAGES_H_
