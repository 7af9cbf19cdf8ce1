#ifndef POSTWRIGHT_SERVICE_PAGE_PEOPLEPAGE_H_
#define POSTWRIGHT_SERVICE_PAGE_PEOPLEPAGE_H_

#include <chrono>
#include <functional>
#include <string>

#include "service/AnswerSource.h"
#include "service/http/FormFields.h"
#include "service/http/HostAccess.h"
#include "service/http/HttpMessage.h"
#include "service/page/OwnAnswers.h"
#include "service/page/PageFrame.h"
#include "service/page/WorkQueue.h"

namespace postwright::service {

// The service's page for people: GET / and, for a label or a table, POST / with the fields of a
// form. `label` is a label's text, `table` a table's; with the latter `as` says how it comes back:
// as a page (not given), as "csv", or as "rows" of the page, for its script.
//
//   PeoplePage page(source, "1.0", {"127.0.0.1"}, {});
//   HttpServer::Limits limits{.roomierBody = std::bind_front(&PeoplePage::RoomFor, &page)};
//   if (!page.Answer(request, respond)) { service.Answer(request, respond); }
//
// Labels go through the engine in a thread of the page's own, one after another: whoever asks the
// service never waits for one. It uses AddressParser::GetInstance(), which nobody else in the
// process may meanwhile. Nothing of them is kept or logged. Any thread may call Answer and RoomFor.
class PeoplePage {
 public:
  static constexpr size_t kMostBytes = 1024 * 1024;     // of a form
  static constexpr size_t kLongestLabel = 10'000;       // bytes
  static constexpr size_t kMostWaiting = 8;             // forms
  static constexpr std::chrono::seconds kTableTime{8};  // rows that would begin later are not asked
                                                        // about

  // Gives the part of the page that shows the service's state to whoever sends a request; HTML,
  // empty where there is none for them. Must not wait.
  using State = std::function<std::string(const HttpRequest&)>;

  // Asks `source`, which it borrows. `version` is the program's.
  PeoplePage(AnswerSource& source, std::string version, HostAccess access, State state);

  // Answers within the call or later; returns false for a path that is not the page's.
  bool Answer(const HttpRequest& request, const Respond& respond);

  // What was asked on it, which is not among the service's own counts.
  const TrafficCounts& Counts() const { return answers_.Counts(); }

  // How long a body may be, by the request's head; 0 where the page has no say.
  size_t RoomFor(const HttpRequest& request) const;

 private:
  using Time = std::chrono::steady_clock::time_point;

  void AnswerLater(const HttpRequest& request, const Respond& respond);
  static HttpReply AnswerForm(const std::string& body, PageParts parts, Time until);
  static HttpReply AnswerLabel(const FormFields& fields, PageParts parts);
  static HttpReply AnswerTable(const FormFields& fields, PageParts parts, Time until);
  PageParts PartsFor(const HttpRequest& request) const;

  const std::string version_;
  const HostAccess access_;
  const State state_;
  const OwnAnswers answers_;
  WorkQueue queue_;
};

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_PAGE_PEOPLEPAGE_H_
