#include <postwright/ReviewedFix.h>

#include "client/FixGate.h"
#include "client/LabelCandidates.h"
#include "client/ReviewWords.h"

namespace postwright {

namespace {

// A candidate without a range: in its text every percent sign is literal.
PostwrightSelectorPointer candidate(const QString& text) {
  return std::make_shared<PostwrightSelector>(text, text, QString(), QString());
}

// What became of the address lines, among the others again.
QString wholeLabel(const AddressLines& lines, const QString& address, const QString& typed,
                   const LabelForm& form, const PostwrightClient& client) {
  const QString label = QString::fromStdWString(lines.PutBack(address.toStdWString()));
  if (form.names == NamesSameCase) {
    return labelInCase(label, client);
  }
  return lines.GetOutcome() == AddressLinesUnclear ? withNamesAsTyped(label, typed) : label;
}

}  // namespace

ReviewedFix::ReviewedFix(PostwrightClient& client, const QString& label, const Asking& asking) {
  const std::wstring typed = label.toStdWString();
  std::optional<AddressLines> lines;
  if (!asking.wholeLabel) {
    const FixGate::Pass pass;  // the parser is one for all
    lines.emplace(typed);
    _leftAlone = lines->GetReason();
    if (lines->GetOutcome() == AddressLinesLeftAlone) {
      return;
    }
  }
  // The engine knows no combining marks, and would lose an accent that is one.
  const QString question = lines ? QString::fromStdWString(lines->GetQuestion()) : label;
  _answer = client.fixAddress(question.normalized(QString::NormalizationForm_C));
  _message = client.lastResult().value_or(QString());
  if (!_answer) {
    return;
  }
  _confirmation = Confirmation(client.lastReport());
  if (lines) {
    putCandidatesBack(*lines, *_answer);
  }
  QString& text = _answer->ExactAddress;
  if (text.isEmpty() && !_answer->Candidates.isEmpty()) {
    return;  // turned down, with a choice
  }
  text = addressInForm(text, asking.form.punctuation, client);
  if (lines) {
    text = wholeLabel(*lines, text, label, asking.form, client);
  }
  _review = CorrectionReview(typed, text.toStdWString(), client.lastReport().Footnotes());
}

AddressOutcome fixReviewed(PostwrightClient& client, const QString& label,
                           const ReviewedFix::Asking& asking) {
  const ReviewedFix fix(client, label, asking);
  if (fix.leftAlone() != LeftAloneNot) {
    return {.answer = AddressFix{label, {}},
            .message = {},
            .remark = sentenceOf(fix.leftAlone()),
            .isAsked = false};
  }
  AddressOutcome outcome{.answer = fix.answer(),
                         .message = fix.message(),
                         .confirmation = fix.confirmation(),
                         .footnotes = client.lastReport().Footnotes()};
  if (!outcome.answer) {
    const FailureWords failure = failureOf(label, client.lastReport());
    outcome.remark = failure.reason;
    outcome.proposal = failure.proposal;
    return outcome;
  }
  if (!outcome.answer->Candidates.isEmpty()) {
    outcome.remark = sentenceOf(fix.confirmation());
    return outcome;
  }
  if (outcome.answer->MatchedAddresses.size() >= 2) {
    return outcome;
  }
  const QString corrected = outcome.answer->ExactAddress;
  // What says the same but for punctuation and lines is not a correction: the number or the unit
  // alone can be wrong.
  const bool isDoubtful = fix.review().Doubtful() && !PostwrightClient::isAddress(label, corrected);
  outcome.isOpen = fix.confirmation().Contradicts();
  if (!isDoubtful && !outcome.isOpen) {
    return outcome;
  }
  outcome.answer->MatchedAddresses = {candidate(corrected)};
  if (corrected != label) {
    outcome.answer->MatchedAddresses.append(candidate(label));
  }
  outcome.remark = isDoubtful ? reasonOf(fix.review()) : sentenceOf(fix.confirmation());
  return outcome;
}

}  // namespace postwright
