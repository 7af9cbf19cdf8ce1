#ifndef POSTWRIGHT_CORE_REVIEW_LINECHECK_H_
#define POSTWRIGHT_CORE_REVIEW_LINECHECK_H_

#include <postwright/CorrectionRule.h>

#include <optional>

#include "core/review/ReadLabel.h"
#include "core/review/WordAlignment.h"

namespace postwright {

// Finds what is wrong with words that are the same, or the same written differently, on both sides:
// they are on another line, or have lost the meaning that they had among their neighbours.
class LineCheck {
 public:
  LineCheck(const ReadLabel& typed, const ReadLabel& corrected)
      : typed_(typed), corrected_(corrected) {}

  // Returns the doubt about `piece`, which has words on both sides, as had `before`, the last such
  // piece before it, or null.
  std::optional<CorrectionRule> Check(const AlignedPiece* before, const AlignedPiece& piece) const;

 private:
  std::optional<CorrectionRule> CompareBreak(const AlignedPiece& before,
                                             const AlignedPiece& piece) const;
  bool MayJoin(const AlignedPiece& before, const AlignedPiece& piece) const;
  bool MayCut(const AlignedPiece& before, const AlignedPiece& piece) const;
  bool BeginsAsStreetEnds(std::size_t city) const;
  bool IsAloneOnLine(std::size_t i) const;
  bool IsLineOf(std::size_t last, Role role) const;
  bool IsCutWithin(const AlignedPiece& piece) const;
  bool LosesUnitSign(const AlignedPiece& piece) const;
  bool SplitsDirection(const AlignedPiece& piece) const;
  bool ShortensName(const AlignedPiece& piece) const;
  bool TakesUnitForSuffix(const AlignedPiece& piece) const;
  bool IsOneDirection(std::size_t first) const;

  const ReadLabel& typed_;
  const ReadLabel& corrected_;
};

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_REVIEW_LINECHECK_H_
