#ifndef POSTWRIGHT_APPS_POSTWRIGHT_LABELFIX_H_
#define POSTWRIGHT_APPS_POSTWRIGHT_LABELFIX_H_

#include <postwright/BatchResultRecord.h>
#include <postwright/Confirmation.h>
#include <postwright/CorrectionReview.h>
#include <postwright/PostwrightClient.h>
#include <postwright/ReviewedFix.h>

#include <chrono>
#include <string>

namespace postwright {

// What came of one label: asked about with its address lines, the others kept as they were typed,
// or not asked about where it is left alone. A correction that is doubtful is proposed and not
// made.
class LabelFix {
 public:
  struct Asking {
    ReviewedFix::Asking reviewed;
    bool acceptDoubtful = false;  // what is doubtful is made all the same
  };

  // Asks through `client`, once at most, and blocks as its fixAddress() does. `client` must
  // keep punctuation, and says which case the text has.
  LabelFix(const std::wstring& label, const Asking& asking, PostwrightClient& client);

  // As in a batch: of a label that is left alone, status 0 and the text as typed; of one whose
  // correction is doubtful, status 2.
  const BatchResultRecord::Values& Values() const { return values_; }

  // The corrected text, its address in the form that was asked for also where nothing else changed;
  // the text as typed where it was left alone or the correction is doubtful, and "" where the fix
  // failed.
  const std::wstring& Text() const { return text_; }

  // The corrected text where it is doubtful; else "".
  const std::wstring& Proposed() const { return proposed_; }

  // The text with what it lacks, where nothing was read in it and only one thing can be meant: a
  // ZIP code with its zero, a house number in figures. To be offered; else "".
  const std::wstring& Mended() const { return mended_; }

  // What the correction changes; nothing where there was none.
  const CorrectionReview& Review() const { return review_; }

  // How far the service confirmed the corrected text; nothing of a label that is left alone or
  // whose fix failed. Where it contradicts the number or the unit, the correction is doubtful.
  const Confirmation& Confirmed() const { return confirmation_; }

  // Whose word the answer or the refusal is; untold where the service did not say.
  const VerifySource& Source() const { return source_; }

  // What could have been meant, where `client` asks for candidates and the service named any. The
  // rest is as if it had not.
  const QList<AddressMatch>& Candidates() const { return candidates_; }

  // False where the label is left alone.
  bool IsAsked() const { return isAsked_; }

  // True where nobody judged the label: the service or the network failed. Then, how long the
  // service wants to be left alone; 0 where it does not say.
  bool IsUnanswered() const { return isUnanswered_; }
  std::chrono::seconds RetryAfter() const { return retryAfter_; }

  // A code: why the label was left alone, why nothing was read in it, why it was turned down or not
  // answered, or what is doubtful; "" for none of these.
  const std::string& Reason() const { return reason_; }

  // The same in English, a sentence or two for a person; "" where Reason() is.
  const std::string& ReasonText() const { return reasonText_; }

 private:
  void TakeAnswer(const ReviewedFix& fix);
  void LeaveAlone(const std::wstring& label, LeftAloneReason reason);
  void Judge(const std::wstring& label);
  void Propose(const std::wstring& label, const std::string& reason, const std::string& text);
  void ExplainFailure(const std::wstring& label, const VerifyReport& report);

  BatchResultRecord::Values values_;
  std::wstring text_;
  std::wstring proposed_;
  std::wstring mended_;
  CorrectionReview review_;
  Confirmation confirmation_;
  VerifySource source_;
  bool isAsked_ = true;
  bool isUnanswered_ = false;
  std::chrono::seconds retryAfter_{0};
  std::string reason_;
  std::string reasonText_;
  QList<AddressMatch> candidates_;
};

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_POSTWRIGHT_LABELFIX_H_
