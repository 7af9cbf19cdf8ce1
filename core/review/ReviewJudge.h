#ifndef POSTWRIGHT_CORE_REVIEW_REVIEWJUDGE_H_
#define POSTWRIGHT_CORE_REVIEW_REVIEWJUDGE_H_

#include <string_view>
#include <vector>

#include "core/review/ReadLabel.h"
#include "core/review/WordAlignment.h"

namespace postwright {

// Returns the pieces of the two texts that differ, each with its rule, and what else is to be
// doubted: words that went from one line into another, a box that left its route. In the order of
// the corrected text.
std::vector<AlignedPiece> JudgeCorrection(ReadLabel typed, const ReadLabel& corrected,
                                          std::string_view footnotes);

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_REVIEW_REVIEWJUDGE_H_
