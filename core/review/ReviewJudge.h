#ifndef POSTWRIGHT_CORE_REVIEW_REVIEWJUDGE_H_
#define POSTWRIGHT_CORE_REVIEW_REVIEWJUDGE_H_

#include <postwright/CorrectionRule.h>

#include <string_view>
#include <vector>

#include "core/review/ReadLabel.h"
#include "core/review/WordAlignment.h"

namespace postwright {

// A change by the words that it takes: [begin, end) of each text.
struct JudgedChange {
  std::size_t typedBegin = 0;
  std::size_t typedEnd = 0;
  std::size_t correctedBegin = 0;
  std::size_t correctedEnd = 0;
  CorrectionRule rule = CorrectionRule::Word;

  bool HasTyped() const { return typedBegin < typedEnd; }
  bool HasCorrected() const { return correctedBegin < correctedEnd; }
};

// Finds the rule of each difference between two texts, and what else is to be doubted: words that
// went from one line into another, a box that left its route. In the order of the corrected text.
std::vector<JudgedChange> JudgeCorrection(ReadLabel typed, const ReadLabel& corrected,
                                          std::string_view footnotes);

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_REVIEW_REVIEWJUDGE_H_
