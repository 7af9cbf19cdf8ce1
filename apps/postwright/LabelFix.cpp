#include "apps/postwright/LabelFix.h"

#include <postwright/Deployment.h>
#include <postwright/UnreadReason.h>
#include <postwright/VerifyFailure.h>

#include "apps/postwright/stream/Utf8.h"

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
  values_.takeAnswer(fix.answer(), fix.message());
  if (values_.status == AddressStatusError) {
    ExplainFailure(label, client.lastReport());
  } else if (review_.Doubtful() && !asking.acceptDoubtful) {
    Judge(label);
  } else if (confirmation_.ContradictsNumber() && !asking.acceptDoubtful) {
    JudgeNumber(label);
  }
}

void LabelFix::LeaveAlone(const std::wstring& label, LeftAloneReason reason) {
  reason_ = CodeOfReason(reason);
  explanation_ = TextOfReason(reason);
  values_.fixed = values_.address;
  values_.pending = false;
  text_ = label;
}

// What says the same but for punctuation is no correction, so there is nothing to decide.
void LabelFix::Judge(const std::wstring& label) {
  if (values_.status == AddressStatusFixed) {
    proposed_ = text_;
    reason_ = review_.ReasonCode();
    explanation_ = "postwright: the text was left as it is, since the correction is doubtful. " +
                   Utf8FromWide(review_.Reason());
    values_.status = AddressStatusMultiple;
    values_.fixed.clear();
  }
  text_ = label;
}

// Also where nothing was changed: a number that was mistyped is what the service sends back as it
// is.
void LabelFix::JudgeNumber(const std::wstring& label) {
  if (values_.status == AddressStatusMultiple) {
    return;
  }
  proposed_ = text_;
  text_ = label;
  reason_ = confirmation_.Code();
  explanation_ = "postwright: the text was left as it is, since the address is doubtful: " +
                 std::string(confirmation_.Text()) + ". Look at the number.";
  values_.status = AddressStatusMultiple;
  values_.fixed.clear();
}

// What the text lacks says more than a service that was asked about nothing.
void LabelFix::ExplainFailure(const std::wstring& label, const VerifyReport& report) {
  const VerifyFailure failure(report, GetDeployment().verifyHost);
  isUnanswered_ = failure.IsUnanswered();
  if (isUnanswered_) {
    reason_ = failure.Code();
    explanation_ = failure.Text();
    return;
  }
  const UnreadReason unread(label);
  const bool isRead = unread.GetCause() == UnreadCauseNone;
  reason_ = isRead ? failure.Code() : unread.GetCode();
  const std::string text = isRead ? failure.Text() : unread.GetText();
  explanation_ = values_.result.toStdString() + (text.empty() ? "" : "\n" + text);
}

}  // namespace postwright
