#include <postwright/CorrectionReview.h>

#include <algorithm>

#include "core/review/DoubtReason.h"
#include "core/review/ReviewJudge.h"

namespace postwright {

namespace {

// The words [begin, end) of a text; where there are none, the place after the word before.
CorrectionPart Part(std::wstring_view text, const std::vector<LabelWord>& words, std::size_t begin,
                    std::size_t end) {
  if (begin < end) {
    const std::size_t from = words[begin].begin;
    const std::size_t to = words[end - 1].end;
    return {std::wstring(text.substr(from, to - from)), words[begin].line, from, to};
  }
  if (begin == 0) {
    return {};
  }
  return {L"", words[begin - 1].line, words[begin - 1].end, words[begin - 1].end};
}

}  // namespace

CorrectionReview::CorrectionReview(std::wstring_view typed, std::wstring_view corrected,
                                   std::string_view footnotes) {
  const ReadLabel before(typed);
  const ReadLabel after(corrected);
  for (const AlignedPiece& judged : JudgeCorrection(before, after, footnotes)) {
    CorrectionChange change;
    change.rule = judged.rule;
    change.typed = Part(typed, before.words, judged.typedBegin, judged.typedEnd);
    change.corrected = Part(corrected, after.words, judged.correctedBegin, judged.correctedEnd);
    change.doubt = IsDoubt(judged.rule);
    if (change.doubt) {
      change.reason = DoubtReason(change.rule, change.typed.text, change.corrected.text);
    }
    changes_.push_back(std::move(change));
  }
}

const CorrectionChange* CorrectionReview::Doubt() const {
  const auto found = std::find_if(changes_.begin(), changes_.end(),
                                  [](const CorrectionChange& change) { return change.doubt; });
  return found == changes_.end() ? nullptr : &*found;
}

std::string CorrectionReview::ReasonCode() const {
  const CorrectionChange* const doubt = Doubt();
  return doubt == nullptr ? std::string() : CorrectionRuleCode(doubt->rule);
}

std::wstring CorrectionReview::Reason() const {
  const CorrectionChange* const doubt = Doubt();
  return doubt == nullptr ? std::wstring() : doubt->reason;
}

}  // namespace postwright
