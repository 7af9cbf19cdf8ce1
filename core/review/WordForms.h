#ifndef POSTWRIGHT_CORE_REVIEW_WORDFORMS_H_
#define POSTWRIGHT_CORE_REVIEW_WORDFORMS_H_

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "common/StringHash.h"
#include "core/parser/Vocabulary.h"

namespace postwright {

// The postal words by their written forms: the parser's own tables, turned to look words up. Words
// are given as a LabelWord has them. Each look-up returns the standard form, also of a standard
// form, and the empty text for a word that the tables do not hold. Constant once built, on first
// use: any thread may ask.
class WordForms {
 public:
  static const WordForms& Get();

  std::wstring_view Suffix(std::wstring_view word) const { return Find(suffixes_, word); }
  std::wstring_view Direction(std::wstring_view word) const { return Find(directions_, word); }
  std::wstring_view NumberedUnit(std::wstring_view word) const { return Find(numbered_, word); }
  std::wstring_view PlainUnit(std::wstring_view word) const { return Find(plain_, word); }
  std::wstring_view Unit(std::wstring_view word) const {  // of either kind
    return NumberedUnit(word).empty() ? PlainUnit(word) : NumberedUnit(word);
  }

  // Says whether the word can stand around a street's name: a suffix or a directional.
  bool IsStreetWord(std::wstring_view word) const {
    return !Suffix(word).empty() || !Direction(word).empty();
  }

  // Says whether the word is a street type that the grammar does not know: MEWS, ROW.
  bool IsOtherType(std::wstring_view word) const {
    return std::find(Vocabulary::kOtherTypes.begin(), Vocabulary::kOtherTypes.end(), word) !=
           Vocabulary::kOtherTypes.end();
  }

  // A state's code by code or name; the name's words run together ("NEWYORK").
  std::wstring_view State(std::wstring_view nameOrCode) const { return Find(states_, nameOrCode); }

  // Other words of a street or city that have two forms: SAINT and ST, COUNTY and CNTY.
  std::wstring_view Common(std::wstring_view word) const { return Find(common_, word); }

  // "1" of ONE and 01, "1ST" of FIRST; an ordinal in figures is its own form.
  std::wstring Number(std::wstring_view word) const;

  // Says whether `word` is a misspelling of a form of the standard suffix, within one letter or
  // one swap.
  bool IsMisspeltSuffix(std::wstring_view word, std::wstring_view standard) const;

 private:
  using Table =
      std::unordered_map<std::wstring, std::wstring, StringHash<wchar_t>, std::equal_to<>>;

  WordForms();
  static void AddUnits(const std::vector<Vocabulary::VocabularyRow>& rows, Table& table);
  static std::wstring_view Find(const Table& table, std::wstring_view word) {
    const auto found = table.find(word);
    return found == table.end() ? std::wstring_view() : std::wstring_view(found->second);
  }

  Table suffixes_;
  Table directions_;
  Table numbered_;
  Table plain_;
  Table states_;
  Table common_;
  Table numbers_;
};

// True where the words differ by one letter, or by two neighbours that changed places. Equal words
// do not; words of more than 64 letters never.
bool IsOneLetterApart(std::wstring_view one, std::wstring_view other);

// How many letters have to be put in, left out or changed, and neighbours exchanged, to make one
// text of the other; for texts of more than 64 letters the longer one's length.
std::size_t LettersApart(std::wstring_view one, std::wstring_view other);

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_REVIEW_WORDFORMS_H_
