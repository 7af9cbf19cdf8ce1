#include "apps/postwright/LabelFix.h"

#include <postwright/AddressLines.h>
#include <postwright/UnreadReason.h>

namespace postwright {

LabelFix::LabelFix(const std::wstring& label, bool wholeLabel, PostwrightClient& client) {
  values_.address = QString::fromStdWString(label);
  if (wholeLabel) {
    const std::optional<AddressFix> answer = client.fixAddress(values_.address);
    values_.takeAnswer(answer, client.lastResult().value_or(QString()));
    text_ = answer ? answer->ExactAddress.toStdWString() : L"";
    Explain(label);
    return;
  }
  const AddressLines lines(label);
  if (lines.GetOutcome() == AddressLinesLeftAlone) {
    values_.fixed = values_.address;
    values_.pending = false;
    text_ = label;
    reason_ = CodeOfReason(lines.GetReason());
    explanation_ = TextOfReason(lines.GetReason());
    return;
  }
  std::optional<AddressFix> answer =
      client.fixAddress(QString::fromStdWString(lines.GetQuestion()));
  if (answer) {
    text_ = lines.PutBack(answer->ExactAddress.toStdWString());
    answer->ExactAddress = QString::fromStdWString(text_);
  }
  values_.takeAnswer(answer, client.lastResult().value_or(QString()));
  Explain(label);
}

void LabelFix::Explain(const std::wstring& label) {
  if (values_.status != AddressStatusError) {
    return;
  }
  explanation_ = values_.result.toStdString();
  if (values_.isUnanswered()) {
    return;
  }
  const UnreadReason reason(label);
  reason_ = reason.GetCode();
  if (!reason_.empty()) {
    explanation_ += "\n" + std::string(reason.GetText());
  }
}

}  // namespace postwright
