#ifndef POSTWRIGHT_CORE_REVIEW_WORDLIKENESS_H_
#define POSTWRIGHT_CORE_REVIEW_WORDLIKENESS_H_

#include <postwright/CorrectionRule.h>

#include <optional>
#include <string>

#include "core/review/LineRoles.h"

namespace postwright {

// How the words of one piece of an alignment stand to one another.
enum class Match {
  Same,
  Form,      // the same written differently; `rule` says how
  MayForm,   // the same where the service knows the street
  Spelling,  // within one letter or one swap
  Unlike,
  OneSided,  // words of one text alone
  Unread     // more than is looked at
};

// A word with what is asked of it in each comparison.
struct ComparedWord {
  explicit ComparedWord(const std::wstring& word);

  std::wstring text;
  std::wstring plain;  // without signs
  std::wstring unaccented;
  bool hasDigit;
};

struct WordMatch {
  Match match = Match::Same;  // or Form or Spelling
  CorrectionRule rule = CorrectionRule::Word;
};

// Says in what way two different words are one word; nullopt where they are not. `role` is that of
// the corrected word: in a name nothing but signs may differ.
std::optional<WordMatch> FindLikeness(const ComparedWord& typed, const ComparedWord& corrected,
                                      Role role);

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_REVIEW_WORDLIKENESS_H_
