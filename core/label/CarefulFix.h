#ifndef POSTWRIGHT_CORE_LABEL_CAREFULFIX_H_
#define POSTWRIGHT_CORE_LABEL_CAREFULFIX_H_

#include <postwright/AddressFields.h>
#include <postwright/AddressLines.h>
#include <postwright/AddressMatch.h>
#include <postwright/Confirmation.h>
#include <postwright/CorrectionReview.h>
#include <postwright/FixedAddress.h>
#include <postwright/ReportingServices.h>
#include <postwright/VerifyReport.h>

#include <atomic>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/label/FixStatus.h"

namespace postwright {

// One label, asked about with its address lines, the others kept as they were typed, or not asked
// about where it is left alone. A correction that is doubtful is proposed and not made. For
// programs without Qt, which have ReviewedFix otherwise.
class CarefulFix {
 public:
  struct Asking {
    bool wholeLabel = false;
    bool keepPunctuation = false;
    bool acceptDoubtful = false;
    int candidates = 0;  // as many are asked for at most, up to VerifyCandidate::kMost
  };

  // Asks the service in force, once at most, and blocks until it answers. Uses
  // AddressParser::GetInstance(): one thread at a time. Fails as unanswered within about a second
  // once `abandoned`, which may be null, holds true.
  CarefulFix(const std::wstring& label, const Asking& asking, const std::atomic<bool>* abandoned);

  FixStatus Status() const { return status_; }
  const std::wstring& Text() const { return text_; }          // the text to go on with
  const std::wstring& Proposed() const { return proposed_; }  // of an undecided label; else ""
  const std::wstring& Mended() const { return mended_; }      // UnreadReason's proposal
  const std::string& Reason() const { return reason_; }
  const std::string& ReasonText() const { return reasonText_; }
  const CorrectionReview& Review() const { return review_; }
  const Confirmation& Confirmed() const { return confirmation_; }
  const VerifySource& Source() const { return source_; }
  bool IsAsked() const { return isAsked_; }
  std::int32_t RetryAfter() const { return retryAfter_; }

  // What could have been meant, each within the label, where the service has a choice to offer. The
  // rest is as if it had not: an address that was turned down was.
  const std::vector<AddressMatch>& Candidates() const { return candidates_; }

  // The service's own address where it may be taken: of a label that is fixed or unchanged.
  const std::optional<AddressFields>& Address() const { return address_; }

 private:
  void Leave(const std::string& reason, const std::string& text);
  void Ask(const AddressLines* lines, const std::atomic<bool>* abandoned);
  void TakeAnswer(const AddressLines* lines, const AddressFields& answer);
  void TakeCandidates(const AddressLines* lines, const FixedAddress& answer);
  void Judge();
  void Propose(const std::string& reason, const std::string& text);
  void ExplainFailure(const VerifyReport& report);
  std::wstring InForm(const std::wstring& address) const;

  const std::wstring label_;
  const Asking asking_;
  FixStatus status_ = FixStatus::kUnchanged;
  std::wstring text_;
  std::wstring proposed_;
  std::wstring mended_;
  std::string reason_;
  std::string reasonText_;
  CorrectionReview review_;
  Confirmation confirmation_;
  VerifySource source_;
  bool isAsked_ = true;
  std::int32_t retryAfter_ = 0;
  std::optional<AddressFields> address_;
  std::vector<AddressMatch> candidates_;
};

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_LABEL_CAREFULFIX_H_
