#include <postwright/AddressLines.h>
#include <postwright/CorrectionReview.h>
#include <postwright/ReviewedFix.h>

namespace postwright {

namespace {

// A candidate without a range: a text of which every percent sign stands for itself.
PostwrightSelectorPointer candidate(const QString& text) {
  return std::make_shared<PostwrightSelector>(text, text, QString(), QString());
}

}  // namespace

AddressOutcome fixReviewed(PostwrightClient& client, const QString& address) {
  const std::wstring typed = address.toStdWString();
  const AddressLines lines(typed);
  AddressOutcome outcome;
  if (lines.GetOutcome() == AddressLinesLeftAlone) {
    outcome.answer = AddressFix{address, {}};
    outcome.remark = QString::fromUtf8(TextOfReason(lines.GetReason()));
    return outcome;
  }
  outcome.answer = client.fixAddress(QString::fromStdWString(lines.GetQuestion()));
  outcome.message = client.lastResult().value_or(QString());
  if (!outcome.answer) {
    return outcome;
  }
  const std::wstring corrected = lines.PutBack(outcome.answer->ExactAddress.toStdWString());
  outcome.answer->ExactAddress = QString::fromStdWString(corrected);
  const CorrectionReview review(typed, corrected, client.lastReport().Footnotes());
  if (review.Doubtful() && outcome.answer->MatchedAddresses.size() < 2) {
    outcome.answer->MatchedAddresses = {candidate(outcome.answer->ExactAddress),
                                        candidate(address)};
    outcome.remark = QString::fromStdWString(review.Reason());
  }
  return outcome;
}

}  // namespace postwright
