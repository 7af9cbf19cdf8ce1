#include "apps/postwright/LabelFix.h"

#include <postwright/Deployment.h>
#include <postwright/FixResult.h>
#include <postwright/UnreadReason.h>
#include <postwright/VerifyFailure.h>

#include <utility>

#include "common/WideText.h"

namespace postwright {

LabelFix::LabelFix(const std::wstring& label, const Asking& asking, PostwrightClient& client) {
  values_.address = QString::fromStdWString(label);
  const ReviewedFix fix(client, values_.address, asking.reviewed);
  if (fix.leftAlone() != LeftAloneNot) {
    LeaveAlone(label, fix.leftAlone());
    return;
  }
  text_ = fix.answer() ? fix.answer()->ExactAddress.toStdWString() : L"";
  review_ = fix.review();
  confirmation_ = fix.confirmation();
  source_ = client.lastReport().Source();
  TakeAnswer(fix);
  if (values_.status == AddressStatusError) {
    ExplainFailure(label, client.lastReport());
  } else if (!asking.acceptDoubtful) {
    Judge(label);
  }
}

// Candidates are told besides the answer and change nothing of it: an address that was turned down
// was.
void LabelFix::TakeAnswer(const ReviewedFix& fix) {
  std::optional<AddressFix> answer = fix.answer();
  QString message = fix.message();
  if (answer && !answer->Candidates.isEmpty()) {
    candidates_ = std::exchange(answer->Candidates, {});
    answer->MatchedAddresses.clear();
    if (answer->ExactAddress.isEmpty()) {
      answer.reset();
      message = PostwrightClient::stringForResult(FixResultInvalidAddress);
    }
  }
  values_.takeAnswer(answer, message);
}

void LabelFix::LeaveAlone(const std::wstring& label, LeftAloneReason reason) {
  isAsked_ = false;
  reason_ = CodeOfReason(reason);
  reasonText_ = TextOfReason(reason);
  values_.fixed = values_.address;
  values_.pending = false;
  text_ = label;
}

void LabelFix::Judge(const std::wstring& label) {
  if (review_.Doubtful() && values_.status == AddressStatusFixed) {
    Propose(label, review_.ReasonCode(), Utf8FromAnyWide(review_.Reason()));
  } else if (confirmation_.Contradicts() && values_.status != AddressStatusMultiple) {
    // Also where nothing was changed: a number that was mistyped is what the service sends back as
    // it is.
    const std::string place =
        confirmation_.ContradictsUnit() ? "the number and the unit" : "the number";
    Propose(label, confirmation_.Code(),
            "Look at " + place + ": " + std::string(confirmation_.Text()) + ".");
  } else if (review_.Doubtful()) {
    text_ = label;  // what says the same but for punctuation is not a correction: nothing to decide
  }
}

void LabelFix::Propose(const std::wstring& label, const std::string& reason,
                       const std::string& text) {
  proposed_ = std::exchange(text_, label);
  reason_ = reason;
  reasonText_ = text;
  values_.status = AddressStatusMultiple;
  values_.fixed.clear();
}

// What the text lacks says more than a service that was asked about nothing.
void LabelFix::ExplainFailure(const std::wstring& label, const VerifyReport& report) {
  const VerifyFailure failure(report, GetDeployment().verifyHost);
  isUnanswered_ = failure.IsUnanswered();
  if (isUnanswered_) {
    retryAfter_ = std::chrono::seconds(report.Fetch().retryAfter);
    reason_ = failure.Code();
    reasonText_ = failure.Text();
    return;
  }
  const UnreadReason unread(label);
  const bool isRead = unread.GetCause() == UnreadCauseNone;
  source_ = isRead ? report.Source() : VerifySource();
  mended_ = unread.GetProposal();
  reason_ = isRead ? failure.Code() : unread.GetCode();
  reasonText_ = isRead ? failure.Text() : unread.GetText();
}

}  // namespace postwright
