#include "apps/postwright/Explanation.h"

#include <algorithm>

#include "apps/postwright/stream/JsonRecord.h"
#include "common/WideText.h"

namespace postwright {

namespace {

// Words as shown on one line of a terminal.
std::string OneLine(const CorrectionPart& part) {
  std::wstring text = part.text.empty() ? L"(nothing)" : part.text;
  std::replace_if(
      text.begin(), text.end(), [](wchar_t c) { return c < L' ' || (c >= 0x7F && c < 0xA0); },
      L' ');
  return Utf8FromAnyWide(text);
}

void AddPart(JsonRecord& record, const std::string& name, const CorrectionPart& part) {
  record.Add(name, part.text);
  record.Add(name + "_line", static_cast<int>(part.line));
  record.Add(name + "_begin", static_cast<int>(part.begin));
  record.Add(name + "_end", static_cast<int>(part.end));
}

}  // namespace

std::string ExplainInWords(const CorrectionReview& review) {
  std::string lines;
  for (const CorrectionChange& change : review.Changes()) {
    lines += std::string(change.doubt ? "doubtful, " : "") + CorrectionRuleText(change.rule) +
             ": " + OneLine(change.typed) + " -> " + OneLine(change.corrected) + "\n";
  }
  return lines;
}

std::string ExplainInWords(const Confirmation& confirmation) {
  return confirmation.Kind() == ConfirmationNone
             ? ""
             : "confirmation: " + std::string(confirmation.Text()) + "\n";
}

std::string ExplainInWords(const VerifySource& source) {
  return source.kind == VerifySourceUntold ? "" : "source: " + source.Text() + "\n";
}

std::string ExplainReasonInWords(const LabelFix& fix) {
  const std::string& text = fix.ReasonText();
  if (!fix.Proposed().empty()) {
    return "postwright: the text was left as it is, for a person to decide. " + text + "\n";
  }
  std::string lines = text.empty() ? "" : text + "\n";
  if (fix.Values().status == AddressStatusError && !fix.IsUnanswered()) {
    lines = fix.Values().result.toStdString() + "\n" + lines;
  }
  return lines;
}

std::string ExplainInJson(const CorrectionReview& review) {
  std::string array;
  for (const CorrectionChange& change : review.Changes()) {
    JsonRecord record("");
    record.Add("rule", WideFromUtf8(CorrectionRuleCode(change.rule)));
    record.Add("text", WideFromUtf8(CorrectionRuleText(change.rule)));
    record.AddJson("doubt", change.doubt ? "true" : "false");
    AddPart(record, "typed", change.typed);
    AddPart(record, "corrected", change.corrected);
    record.Add("reason", change.reason);
    array += (array.empty() ? "" : ",") + record.Line();
    array.pop_back();  // the line feed
  }
  return "[" + array + "]";
}

}  // namespace postwright
