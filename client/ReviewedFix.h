#ifndef POSTWRIGHT_CLIENT_REVIEWEDFIX_H_
#define POSTWRIGHT_CLIENT_REVIEWEDFIX_H_

#include <postwright/AddressLines.h>
#include <postwright/BatchResultRecord.h>
#include <postwright/ClientExport.h>
#include <postwright/Confirmation.h>
#include <postwright/CorrectionReview.h>
#include <postwright/LabelForm.h>

namespace postwright {

// One label, asked about with care: about the lines that are its address alone (AddressLines), the
// others kept as they were typed, or not at all where it is left alone; and what is to be thought
// of the answer.
//
//   const ReviewedFix fix(client, label, {});
//   if (fix.answer() && !fix.review().Doubtful() && !fix.confirmation().Contradicts()) {
//     show(fix.answer()->ExactAddress);
//   }
//
// A plain value.
class POSTWRIGHT_CLIENT_EXPORT ReviewedFix {
 public:
  struct Asking {
    bool wholeLabel = false;  // the whole text is asked about, and corrected as a whole
    LabelForm form;
  };

  // Asks through `client`, once at most, and blocks as its fixAddress() does. `client` must
  // keep punctuation, and says which case the text has.
  ReviewedFix(PostwrightClient& client, const QString& label, const Asking& asking);

  // Why nobody was asked; LeftAloneNot where somebody was.
  LeftAloneReason leftAlone() const { return _leftAlone; }

  // The label as corrected, with candidates where the service knew any; nil on failure and where
  // the label is left alone.
  const std::optional<AddressFix>& answer() const { return _answer; }

  // The client's lastResult() after the fix.
  const QString& message() const { return _message; }

  // What the correction changes, and what is to be doubted of it; nothing without an answer.
  const CorrectionReview& review() const { return _review; }

  // How far the service confirmed the answer.
  const Confirmation& confirmation() const { return _confirmation; }

 private:
  LeftAloneReason _leftAlone = LeftAloneNot;
  std::optional<AddressFix> _answer;
  QString _message;
  CorrectionReview _review;
  Confirmation _confirmation;
};

// The same as an AskFunction: what BatchOptions::reviewsCorrections has the batch window ask with,
// and what a host's own function may ask with where it knows no answer itself. `client` must keep
// punctuation, and so must the window of such a host:
//
//   window.setAsk([&own](PostwrightClient& client, const QString& label) {
//     return own.contains(label) ? own[label] : fixReviewed(client, label, {});
//   });
//
// A label that is left alone is answered with its own text. A correction that is doubtful is not
// made: it comes as two candidates, the text as corrected and the text as typed, with the reason as
// the outcome's remark, so that a person picks one. Where `client` asks for candidates and the
// service names any, they come within the label, with how far it was confirmed as the remark. The
// remark of a failure is its reason and what to do. Remarks are in the language of the library's
// tables. The worker's thread, as every AskFunction.
POSTWRIGHT_CLIENT_EXPORT AddressOutcome fixReviewed(PostwrightClient& client, const QString& label,
                                                    const ReviewedFix::Asking& asking);

// Whose word an answer is, as a sentence in the language of the library's tables: "According to the
// address base texas.base of 2026-11-20."; empty where the service did not say. Any thread.
POSTWRIGHT_CLIENT_EXPORT QString sourceText(const VerifySource& source);

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_REVIEWEDFIX_H_
