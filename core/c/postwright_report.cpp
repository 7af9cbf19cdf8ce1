#include <postwright/Confirmation.h>
#include <postwright/Deployment.h>
#include <postwright/VerifyFailure.h>
#include <postwright/VerifyReport.h>

#include "core/c/Guard.h"
#include "core/c/Handles.h"

#include <memory>
#include <string_view>

namespace postwright {

static_assert(POSTWRIGHT_FETCH_UNKNOWN == int{FetchOutcomeUnknown} &&
              POSTWRIGHT_FETCH_ANSWERED == int{FetchOutcomeAnswered} &&
              POSTWRIGHT_FETCH_NO_NETWORK == int{FetchOutcomeNoNetwork} &&
              POSTWRIGHT_FETCH_NOT_RESOLVED == int{FetchOutcomeNotResolved} &&
              POSTWRIGHT_FETCH_REFUSED == int{FetchOutcomeRefused} &&
              POSTWRIGHT_FETCH_TIMED_OUT == int{FetchOutcomeTimedOut} &&
              POSTWRIGHT_FETCH_BROKE_OFF == int{FetchOutcomeBrokeOff} &&
              POSTWRIGHT_FETCH_BAD_ANSWER == int{FetchOutcomeBadAnswer} &&
              POSTWRIGHT_FETCH_ABANDONED == int{FetchOutcomeAbandoned});
static_assert(POSTWRIGHT_CONFIRMATION_NONE == int{ConfirmationNone} &&
              POSTWRIGHT_CONFIRMATION_FULL == int{ConfirmationFull} &&
              POSTWRIGHT_CONFIRMATION_UNIT_MISSING == int{ConfirmationUnitMissing} &&
              POSTWRIGHT_CONFIRMATION_UNIT_NOT_KNOWN == int{ConfirmationUnitNotKnown} &&
              POSTWRIGHT_CONFIRMATION_NUMBER_NOT_KNOWN == int{ConfirmationNumberNotKnown} &&
              POSTWRIGHT_CONFIRMATION_FORM_ONLY == int{ConfirmationFormOnly});

std::unique_ptr<postwright_report> NewReport(const VerifyReport& report, bool isFailed) {
  auto made = std::make_unique<postwright_report>();
  const FetchReport& fetch = report.Fetch();
  const Confirmation confirmation(report);
  const VerifyFailure failure(report, GetDeployment().verifyHost);
  made->numbers = {fetch.outcome,
                   fetch.httpStatus,
                   fetch.retryAfter,
                   confirmation.Kind(),
                   confirmation.ContradictsNumber() ? 1 : 0,
                   isFailed && failure.IsUnanswered() ? 1 : 0,
                   confirmation.ContradictsUnit() ? 1 : 0};
  made->texts = {confirmation.Code(),
                 confirmation.Text(),
                 isFailed ? failure.Code() : "",
                 isFailed ? failure.Text() : "",
                 report.ErrorNumber(),
                 report.ErrorSource(),
                 report.ErrorDescription(),
                 report.DpvConfirmation(),
                 report.DpvFootnotes(),
                 report.Footnotes(),
                 report.ReturnText(),
                 report.Zip4(),
                 report.CarrierRoute(),
                 report.DeliveryPoint(),
                 report.Source().Code(),
                 report.Source().name,
                 report.Source().date,
                 report.Source().Text()};
  return made;
}

}  // namespace postwright

int32_t postwright_report_new(const char* reply, size_t length, postwright_report** report) {
  if (report == nullptr) {
    return POSTWRIGHT_BAD_ARGUMENT;
  }
  *report = nullptr;
  if (reply == nullptr) {
    return POSTWRIGHT_BAD_ARGUMENT;
  }
  return postwright::Guard([&]() -> std::int32_t {
    const std::string_view bytes =
        length == POSTWRIGHT_TERMINATED ? std::string_view(reply) : std::string_view(reply, length);
    const postwright::VerifyReport read(bytes);
    const bool isFailed = postwright::Confirmation(read).Kind() == postwright::ConfirmationNone;
    *report = postwright::NewReport(read, isFailed).release();
    return POSTWRIGHT_NONE;
  });
}

int32_t postwright_report_number(const postwright_report* report, int32_t which) {
  const bool exists = report != nullptr && which >= 0 && which < POSTWRIGHT_REPORT_NUMBERS;
  return exists ? report->numbers[static_cast<size_t>(which)] : 0;
}

const char* postwright_report_text(const postwright_report* report, int32_t which) {
  const bool exists = report != nullptr && which >= 0 && which < POSTWRIGHT_REPORT_TEXTS;
  return exists ? report->texts[static_cast<size_t>(which)].c_str() : "";
}

void postwright_report_free(postwright_report* report) {
  delete report;
}
