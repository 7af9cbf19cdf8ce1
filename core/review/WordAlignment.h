#ifndef POSTWRIGHT_CORE_REVIEW_WORDALIGNMENT_H_
#define POSTWRIGHT_CORE_REVIEW_WORDALIGNMENT_H_

#include <postwright/CorrectionRule.h>

#include <vector>

#include "core/review/LabelWords.h"
#include "core/review/LineRoles.h"
#include "core/review/WordLikeness.h"

namespace postwright {

// Words [typedBegin, typedEnd) of the text as typed stand for words [correctedBegin, correctedEnd)
// of the text as corrected.
struct AlignedPiece {
  std::size_t typedBegin = 0;
  std::size_t typedEnd = 0;
  std::size_t correctedBegin = 0;
  std::size_t correctedEnd = 0;
  Match match = Match::Same;
  CorrectionRule rule = CorrectionRule::Word;

  bool HasTyped() const { return typedBegin < typedEnd; }
  bool HasCorrected() const { return correctedBegin < correctedEnd; }
};

// Lays the words of the two texts side by side, each once and in order, so that as few as possible
// are left unlike. `roles` are those of the corrected words: names are not read as postal words.
// Takes time in proportion to the number of words; a stretch of more than 256 words on both sides
// between what is equal at the beginning and at the end is one piece, Match::Unread.
std::vector<AlignedPiece> AlignWords(const std::vector<LabelWord>& typed,
                                     const std::vector<LabelWord>& corrected,
                                     const std::vector<Role>& roles);

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_REVIEW_WORDALIGNMENT_H_
