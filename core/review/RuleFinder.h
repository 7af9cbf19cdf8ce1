#ifndef POSTWRIGHT_CORE_REVIEW_RULEFINDER_H_
#define POSTWRIGHT_CORE_REVIEW_RULEFINDER_H_

#include <string>
#include <string_view>

#include "core/review/ReviewJudge.h"

namespace postwright {

// Finds the rule of one difference by itself, from the role of its words and the reply's footnotes.
class RuleFinder {
 public:
  RuleFinder(const ReadLabel& typed, const ReadLabel& corrected, std::string_view footnotes)
      : typed_(typed), corrected_(corrected), footnotes_(footnotes) {}

  // The rule of the words of `change`, whose match is not Same and not Form.
  CorrectionRule Find(const JudgedChange& change, Match match) const;

  // The role that decides: that of the corrected words, else that of the typed ones.
  Role RoleOf(const JudgedChange& change) const;

 private:
  bool Says(std::string_view notes) const {
    return footnotes_.find_first_of(notes) != std::string_view::npos;
  }
  const LabelWord& Typed(const JudgedChange& change) const {
    return typed_.words[change.typedBegin];
  }
  const LabelWord& Corrected(const JudgedChange& change) const {
    return corrected_.words[change.correctedBegin];
  }
  static std::wstring Letters(const ReadLabel& label, std::size_t begin, std::size_t end);

  CorrectionRule FindElement(const JudgedChange& change, CorrectionRule added,
                             CorrectionRule changed, CorrectionRule dropped,
                             CorrectionRule unexplained) const;
  CorrectionRule FindStreet(const JudgedChange& change) const;
  CorrectionRule FindHouseNumber(const JudgedChange& change) const;
  CorrectionRule FindUnit(const JudgedChange& change) const;
  CorrectionRule FindCity(const JudgedChange& change) const;
  bool RepeatsStreet(const JudgedChange& change) const;
  CorrectionRule FindState(const JudgedChange& change) const;
  CorrectionRule FindZip(const JudgedChange& change) const;
  CorrectionRule FindZip4(const JudgedChange& change) const;
  CorrectionRule FindUrbanization(const JudgedChange& change) const;
  CorrectionRule FindPlain(const JudgedChange& change) const;
  bool IsDoubled(const JudgedChange& change) const;
  bool IsNoiseWord(const JudgedChange& change) const;
  bool WasTyped(Role role) const;

  const ReadLabel& typed_;
  const ReadLabel& corrected_;
  std::string_view footnotes_;
};

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_REVIEW_RULEFINDER_H_
