#include "service/page/PeoplePage.h"

#include <postwright/VerifyCandidate.h>

#include <utility>

#include "common/Encoding.h"
#include "common/SmallText.h"
#include "common/WideText.h"
#include "core/label/CarefulFix.h"
#include "service/page/FixView.h"
#include "service/page/Html.h"
#include "service/page/TableReview.h"
#include "service/page/TableView.h"

namespace postwright::service {
namespace {

using Steady = std::chrono::steady_clock;

constexpr int kOk = 200;
constexpr int kForbidden = 403;
constexpr int kUnavailable = 503;
constexpr std::chrono::seconds kBusyTime(5);

// A field as UTF-8 with line feeds: a browser sends a text's lines with CR LF.
std::string TextOf(const FormFields& fields, std::string_view name) {
  std::string text;
  char before = 0;
  for (const char c : DecodeText(fields.Find(name).value_or(""))) {
    if (c != '\n' || before != '\r') {
      text += c == '\r' ? '\n' : c;
    }
    before = c;
  }
  return text;
}

void Fill(wchar_t place, const std::wstring& value, std::wstring& label) {
  for (size_t at = label.find(place); at != label.npos; at = label.find(place, at + value.size())) {
    label.replace(at, 1, value);
  }
}

std::string Problem(std::string_view text) {
  return "<p class=\"problem\" role=\"alert\">" + html::Text(text) + "</p>\n";
}

}  // namespace

PeoplePage::PeoplePage(AnswerSource& source, std::string version, HostAccess access, State state)
    : version_(std::move(version)),
      access_(std::move(access)),
      state_(std::move(state)),
      answers_(source),
      queue_(kMostWaiting) {}

size_t PeoplePage::RoomFor(const HttpRequest& request) const {
  return request.path == "/" && request.method == "POST" && access_.Allows(request) ? kMostBytes
                                                                                    : 0;
}

bool PeoplePage::Answer(const HttpRequest& request, const Respond& respond) {
  if (request.path != "/") {
    return false;
  }
  if (!access_.Allows(request)) {
    respond(TextReply(kForbidden,
                      "This page is shown on the service's own machine alone, for an address of "
                      "it.\n--open-page HOST shows it to whoever asks for HOST.\n",
                      "path=page"));
  } else if (request.method != "POST") {
    respond(ReplyWithPage(kOk, PartsFor(request), "path=page"));
  } else if (!HostAccess::IsOwn(request)) {
    respond(TextReply(kForbidden, "This form is answered where the service's own page sends it.\n",
                      "path=page fault=foreign-origin"));
  } else {
    AnswerLater(request, respond);
  }
  return true;
}

void PeoplePage::AnswerLater(const HttpRequest& request, const Respond& respond) {
  PageParts parts = PartsFor(request);
  const auto work = [respond, body = request.body, parts, until = Steady::now() + kTableTime] {
    try {
      respond(AnswerForm(body, parts, until));
    } catch (const std::exception& failure) {
      respond(FailureReply(failure.what()));
    }
  };
  if (!queue_.Add(work)) {
    parts.labelAnswer = Problem("Too much is being asked at once. Go back and send it again.");
    HttpReply reply = ReplyWithPage(kUnavailable, parts, "path=page fault=busy");
    reply.retryAfter = kBusyTime;
    respond(std::move(reply));
  }
}

HttpReply PeoplePage::AnswerForm(const std::string& body, PageParts parts, Time until) {
  const FormFields fields(body);
  return fields.Find("table") ? AnswerTable(fields, std::move(parts), until)
                              : AnswerLabel(fields, std::move(parts));
}

HttpReply PeoplePage::AnswerLabel(const FormFields& fields, PageParts parts) {
  std::wstring label = WideFromUtf8(TextOf(fields, "label"));
  Fill(fixview::kNumberPlace, WideFromUtf8(TextOf(fields, "number")), label);
  Fill(fixview::kUnitPlace, WideFromUtf8(TextOf(fields, "unit")), label);
  parts.label = Utf8FromAnyWide(label);
  if (Trim(parts.label).empty()) {
    parts.labelAnswer = Problem("There is no label: type or paste one.");
  } else if (parts.label.size() > kLongestLabel) {
    parts.labelAnswer = Problem("This is too long for a label. A table goes into the other field.");
  } else {
    CarefulFix::Asking asking;
    asking.candidates = VerifyCandidate::kMost;
    parts.labelAnswer = fixview::Answer(label, CarefulFix(label, asking, nullptr));
  }
  return ReplyWithPage(kOk, parts, "path=page labels=1");
}

HttpReply PeoplePage::AnswerTable(const FormFields& fields, PageParts parts, Time until) {
  const std::string text = TextOf(fields, "table");
  const std::string_view as = fields.Find("as").value_or("");
  TableReview table(text);
  table.Ask(until);
  const std::string note = "path=page labels=" + std::to_string(table.Rows().size());
  const bool isUsable = table.Problem().empty();
  if (as == "csv" && isUsable) {
    return ReplyWithPiece("text/csv; charset=utf-8; header=present", table.Csv(), note);
  }
  if (as == "rows") {
    return ReplyWithPiece("text/html; charset=utf-8",
                          isUsable ? tableview::Rows(table) : Problem(table.Problem()), note);
  }
  parts.table = text;
  parts.tableAnswer = tableview::Answer(table, text);
  return ReplyWithPage(kOk, parts, note);
}

PageParts PeoplePage::PartsFor(const HttpRequest& request) const {
  PageParts parts;
  parts.state = state_(request);
  parts.version = version_;
  return parts;
}

}  // namespace postwright::service
