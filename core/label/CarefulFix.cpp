#include "core/label/CarefulFix.h"

#include <postwright/CandidateFix.h>
#include <postwright/Deployment.h>
#include <postwright/Postwright.h>
#include <postwright/PostwrightException.h>
#include <postwright/TextForm.h>
#include <postwright/UnreadReason.h>
#include <postwright/Utils.h>
#include <postwright/VerifyFailure.h>

#include <algorithm>
#include <utility>

#include "common/WideText.h"
#include "core/label/LabelCandidates.h"

namespace postwright {

namespace {

// What no service can be asked about, and no file hold: a NUL, half a surrogate pair.
bool IsNoText(wchar_t c) {
  return c == 0 || (c >= 0xD800 && c <= 0xDFFF);
}

}  // namespace

CarefulFix::CarefulFix(const std::wstring& label, const Asking& asking,
                       const std::atomic<bool>* abandoned)
    : label_(label), asking_(asking), text_(label) {
  if (std::any_of(label.begin(), label.end(), IsNoText)) {
    status_ = FixStatus::kTurnedDown;
    Leave("no-label", "The text holds a NUL or half a surrogate pair, which are not characters.");
    return;
  }
  std::optional<AddressLines> lines;
  if (!asking.wholeLabel) {
    lines.emplace(label);
    if (lines->GetOutcome() == AddressLinesLeftAlone) {
      Leave(CodeOfReason(lines->GetReason()), TextOfReason(lines->GetReason()));
      return;
    }
  }
  Ask(lines ? &*lines : nullptr, abandoned);
}

void CarefulFix::Ask(const AddressLines* lines, const std::atomic<bool>* abandoned) {
  const std::wstring question = TextForm::Composed(lines ? lines->GetQuestion() : label_);
  ReportingServices services(abandoned);
  services.WantSource();
  std::unique_ptr<FixedAddress> answer;
  try {
    answer = asking_.candidates > 0
                 ? FixWithCandidates(question, true, asking_.candidates, &services)
                 : Postwright::Fix(question, true, &services);
  } catch (const PostwrightException&) {
    ExplainFailure(VerifyReport(services.Reply(), services.Fetch()));
    return;
  }
  const VerifyReport report(services.Reply(), services.Fetch());
  TakeCandidates(lines, *answer);
  if (!answer->IsExactMatchAddressValid() && !candidates_.empty()) {
    ExplainFailure(report);
    return;
  }
  confirmation_ = Confirmation(report);
  source_ = report.Source();
  TakeAnswer(lines, answer->GetExactMatchAddress());
  review_ = CorrectionReview(label_, text_, report.Footnotes());
  Judge();
}

void CarefulFix::Leave(const std::string& reason, const std::string& text) {
  isAsked_ = false;
  reason_ = reason;
  reasonText_ = text;
}

void CarefulFix::TakeAnswer(const AddressLines* lines, const AddressFields& answer) {
  address_ = answer;
  text_ = InForm(answer.ComposeAddressBlock());
  if (lines != nullptr) {
    text_ = lines->PutBack(text_);
    if (lines->GetOutcome() == AddressLinesUnclear) {
      text_ = TextForm::WithNamesAsTyped(text_, label_);
    }
  }
  status_ = TextForm::SaysTheSame(text_, label_) ? FixStatus::kUnchanged : FixStatus::kFixed;
}

void CarefulFix::TakeCandidates(const AddressLines* lines, const FixedAddress& answer) {
  candidates_ = answer.GetAddressMatches();
  if (lines != nullptr) {
    std::transform(
        candidates_.begin(), candidates_.end(), candidates_.begin(),
        [lines](const AddressMatch& candidate) { return WithinLabel(*lines, candidate); });
  }
}

std::wstring CarefulFix::InForm(const std::wstring& address) const {
  return asking_.keepPunctuation ? address : Utils::ToUpper(TextForm::Postal(address));
}

// A number that the service does not have is open also where nothing was changed: one that was
// mistyped comes back as it is.
void CarefulFix::Judge() {
  const bool mayPropose = !asking_.acceptDoubtful;
  if (mayPropose && review_.Doubtful() && status_ == FixStatus::kFixed) {
    Propose(review_.ReasonCode(), Utf8FromAnyWide(review_.Reason()));
  } else if (mayPropose && confirmation_.Contradicts()) {
    Propose(confirmation_.Code(),
            std::string("Look at ") +
                (confirmation_.ContradictsUnit() ? "the number and the unit" : "the number") +
                ": " + confirmation_.Text() + ".");
  } else if (status_ == FixStatus::kUnchanged) {
    text_ = label_;
    review_ = CorrectionReview();
  }
}

void CarefulFix::Propose(const std::string& reason, const std::string& text) {
  status_ = FixStatus::kUndecided;
  proposed_ = std::exchange(text_, label_);
  address_.reset();
  reason_ = reason;
  reasonText_ = text;
}

// What the text lacks says more than a service that was asked about nothing.
void CarefulFix::ExplainFailure(const VerifyReport& report) {
  const VerifyFailure failure(report, GetDeployment().verifyHost);
  reason_ = failure.Code();
  reasonText_ = failure.Text();
  if (failure.IsUnanswered()) {
    status_ = FixStatus::kUnanswered;
    retryAfter_ = report.Fetch().retryAfter;
    return;
  }
  status_ = FixStatus::kTurnedDown;
  const UnreadReason unread(label_);
  if (unread.GetCause() == UnreadCauseNone) {
    source_ = report.Source();
    return;
  }
  mended_ = unread.GetProposal();
  reason_ = unread.GetCode();
  reasonText_ = unread.GetText();
}

}  // namespace postwright
