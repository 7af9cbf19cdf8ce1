#ifndef POSTWRIGHT_CORE_REVIEW_PHRASELIST_H_
#define POSTWRIGHT_CORE_REVIEW_PHRASELIST_H_

#include <postwright/CorrectionRule.h>

#include <string>
#include <vector>

#include "core/review/LabelWords.h"

namespace postwright {

// Words that mean one thing together, however they are written: POST OFFICE BOX, SUITE NO 5,
// NEW YORK, CR 12. Two phrases of one meaning stand for one another.
struct Phrase {
  std::size_t words = 0;
  std::wstring meaning;
  CorrectionRule rule = CorrectionRule::Word;  // what writing it otherwise is called
  bool vague = false;  // a highway of which only the number is said: HIGHWAY 7
  bool odd = false;  // words of a highway in no order in which its name is written: ROAD COUNTY 24
};

// True where one may stand for the other: the same meaning, and neither vaguer than the other.
bool MeanTheSame(const Phrase& typed, const Phrase& corrected);

// True where only a service that knows the street can say that it is so: HIGHWAY 7 and US 7.
bool MayMeanTheSame(const Phrase& typed, const Phrase& corrected);

// Returns the phrases that begin with the word `at`, at most five words each.
std::vector<Phrase> FindPhrases(const std::vector<LabelWord>& words, std::size_t at);

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_REVIEW_PHRASELIST_H_
