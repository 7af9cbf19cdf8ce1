#ifndef POSTWRIGHT_CORE_REVIEW_CORRECTIONREVIEW_H_
#define POSTWRIGHT_CORE_REVIEW_CORRECTIONREVIEW_H_

#include <postwright/CorrectionRule.h>
#include <postwright/Export.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace postwright {

// A run of words in one of the two texts. Offsets count the elements of the wide string, code
// points, from the beginning of the whole text; `end` is after the last one. A run that goes over
// a line break begins on `line`.
struct CorrectionPart {
  std::wstring text;      // as it is there, first word to last; empty where there is none
  std::size_t line = 0;   // from 0 on; LF, CR and CR LF end a line
  std::size_t begin = 0;  // of an empty part: the place where the words of the other side would be
  std::size_t end = 0;
};

// One change: the words of one text and those of the other that they replace.
struct CorrectionChange {
  CorrectionRule rule = CorrectionRule::Word;
  CorrectionPart typed;      // empty where words were added
  CorrectionPart corrected;  // empty where words were left out

  bool doubt = false;   // IsDoubt(rule)
  std::wstring reason;  // one English sentence; "" unless a doubt
};

// Explains a correction, word by word, and says whether it may be taken without a person's look.
//
//   const CorrectionReview review(L"12 main street\naustin texas 78701", fixedText, "N");
//   if (review.Doubtful()) {
//     AskAPerson(review.Reason());
//   }
//
// Each word and number of both texts is either the same on both sides, in order, or belongs to
// exactly one change. Case, blanks and punctuation are not changes, but for the signs that USPS
// Publication 28, section 222, keeps in an address: the stroke of a fraction, the hyphen of a house
// number, the point of a numbered road. Accents count as the letters that they make: text is
// compared composed (Unicode's form NFC). What the rules do not account for is a doubt, and so is
// what went from one line into another.
//
// A pure function of its arguments: any thread may review at any time, whatever the locale. The
// time is in proportion to the texts' length; where more than some hundred words in a row differ
// they are one doubt, CorrectionRule::TooLong. Throws nothing but std::bad_alloc. A value.
class POSTWRIGHT_CORE_EXPORT CorrectionReview {
 public:
  // A review of two empty texts.
  CorrectionReview() = default;

  // `typed` is the text as the person has it and `corrected` what is to take its place, in any case
  // and with any punctuation. `footnotes` are the letters of the reply's Footnotes element ("AN"),
  // empty where there were none or nobody knows them: another ZIP code (A), city (A, B), suffix or
  // directional (K, L, M) or street name (M) is explained by its letter alone.
  CorrectionReview(std::wstring_view typed, std::wstring_view corrected,
                   std::string_view footnotes);

  // The changes in the order of the corrected text; empty where the texts say the same.
  const std::vector<CorrectionChange>& Changes() const { return changes_; }

  // True when one change or more is a doubt.
  bool Doubtful() const { return Doubt() != nullptr; }

  // The first doubt's code and sentence; "" where there is none.
  std::string ReasonCode() const;
  std::wstring Reason() const;

 private:
  const CorrectionChange* Doubt() const;

  std::vector<CorrectionChange> changes_;
};

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_REVIEW_CORRECTIONREVIEW_H_
