#ifndef POSTWRIGHT_POSTAL_WORDS_LEXICON_H_
#define POSTWRIGHT_POSTAL_WORDS_LEXICON_H_

#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "common/StringHash.h"
#include "core/parser/Vocabulary.h"

namespace postwright::postal {

// The postal words by their written forms: the parser's own tables, turned to look words up.
//
//   Lexicon::Get().Suffix("AVENUE");   // "AVE"
//   Lexicon::Get().Unit("SUITE");      // "STE"
//
// Words are given in upper case and ASCII. Every look-up returns the empty text for a word that the
// tables do not hold, and the standard form for a standard form. Constant once built, on first use:
// any thread may ask.
class Lexicon {
 public:
  static const Lexicon& Get();

  std::string_view Direction(std::string_view word) const;             // NORTHEAST -> NE
  std::string_view SpelledDirection(std::string_view standard) const;  // NE -> NORTHEAST
  std::string_view Suffix(std::string_view word) const;  // USPS Publication 28, appendix C1
  std::string_view SpelledSuffix(std::string_view standard) const;  // AVE -> AVENUE

  // Says whether a standard suffix can hardly be anything but a street's type, as ST and AVE are;
  // LK or PARK may as well be its name.
  bool IsPlainType(std::string_view standardSuffix) const;

  // Says whether a word is one of the street types that the parser's table does not have: PASS,
  // ROW.
  bool IsOtherType(std::string_view word) const;

  // USPS Publication 28, appendix C2. The parser answers SPACE for a space; the standard is SPC.
  std::string_view NumberedUnit(std::string_view word) const;  // one that a number must follow
  std::string_view PlainUnit(std::string_view word) const;     // one that may stand alone

  // Returns the two-letter code of a state, territory or military "state" given by its code or its
  // name, blanks in the name or not.
  std::string_view State(std::string_view nameOrCode) const;

  // USPS Publication 28, section 225: what stands for a state, for a city and in front of a unit's
  // number in a military address.
  bool IsMilitaryState(std::string_view code) const;  // AA, AE, AP
  bool IsMilitaryCity(std::string_view city) const;   // APO, DPO, FPO
  bool IsMilitaryUnit(std::string_view word) const;   // CMR, PSC, UNIT

 private:
  // Words with their standard forms; the first one of a word stays.
  using Table = std::unordered_map<std::string, std::string, StringHash<char>, std::equal_to<>>;

  Lexicon();
  static std::string_view Find(const Table& table, std::string_view word);
  static void FillWith(std::span<const std::wstring_view> words, Table& table);
  static void FillUnits(const std::vector<Vocabulary::VocabularyRow>& rows, Table& table);

  Table directions_;
  Table spelledDirections_;
  Table suffixes_;
  Table spelledSuffixes_;
  Table otherTypes_;
  Table numberedUnits_;
  Table plainUnits_;
  Table states_;
  Table militaryStates_;
  Table militaryCities_;
  Table militaryUnits_;
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_WORDS_LEXICON_H_
