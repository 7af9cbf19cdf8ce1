#ifndef POSTWRIGHT_CORE_REVIEW_RULEFINDER_H_
#define POSTWRIGHT_CORE_REVIEW_RULEFINDER_H_

#include <string>
#include <string_view>

#include <postwright/CorrectionRule.h>

#include "core/review/ReadLabel.h"
#include "core/review/WordAlignment.h"

namespace postwright {

// Finds the rule of one difference by itself, from the role of its words and the reply's footnotes.
class RuleFinder {
 public:
  RuleFinder(const ReadLabel& typed, const ReadLabel& corrected, std::string_view footnotes)
      : typed_(typed), corrected_(corrected), footnotes_(footnotes) {}

  // The rule of the words of `change`, whose match is not Same and not Form.
  CorrectionRule Find(const AlignedPiece& change) const;

  // The role that decides: that of the corrected words, else that of the typed ones.
  Role RoleOf(const AlignedPiece& change) const;

 private:
  bool Says(std::string_view notes) const {
    return footnotes_.find_first_of(notes) != std::string_view::npos;
  }
  const LabelWord& Typed(const AlignedPiece& change) const {
    return typed_.words[change.typedBegin];
  }
  const LabelWord& Corrected(const AlignedPiece& change) const {
    return corrected_.words[change.correctedBegin];
  }
  static std::wstring Letters(const ReadLabel& label, std::size_t begin, std::size_t end);

  CorrectionRule FindElement(const AlignedPiece& change, CorrectionRule added,
                             CorrectionRule changed, CorrectionRule dropped,
                             CorrectionRule unexplained) const;
  CorrectionRule FindStreet(const AlignedPiece& change) const;
  CorrectionRule FindHouseNumber(const AlignedPiece& change) const;
  CorrectionRule FindUnit(const AlignedPiece& change) const;
  CorrectionRule FindCity(const AlignedPiece& change) const;
  bool RepeatsStreet(const AlignedPiece& change) const;
  CorrectionRule FindState(const AlignedPiece& change) const;
  CorrectionRule FindZip(const AlignedPiece& change) const;
  CorrectionRule FindZip4(const AlignedPiece& change) const;
  CorrectionRule FindUrbanization(const AlignedPiece& change) const;
  CorrectionRule FindPlain(const AlignedPiece& change) const;
  bool IsDoubled(const AlignedPiece& change) const;
  bool IsNoiseWord(const AlignedPiece& change) const;
  bool WasTyped(Role role) const;

  const ReadLabel& typed_;
  const ReadLabel& corrected_;
  std::string_view footnotes_;
};

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_REVIEW_RULEFINDER_H_
