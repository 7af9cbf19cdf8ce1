#ifndef POSTWRIGHT_CORE_PARSER_TAILTABLE_H_
#define POSTWRIGHT_CORE_PARSER_TAILTABLE_H_

#include "core/parser/CharacterClasses.h"
#include "core/parser/PostalWords.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace postwright {

// For every place of a text and every piece of the street and box patterns: can the rest of the
// pattern be matched from here, and where would the piece that begins here end? Built in one pass
// from the end of the text to its beginning, each place from the place after it.
//
// "Greedy" and "lazy" are meant as in the patterns: of the places from which the rest can be
// matched, a member holds the one that a backtracking engine tries first. W stands for a run of
// characters that are not word characters, blanks for such a run without a comma.
class TailTable {
 public:
  static constexpr int kNowhere = -1;

  struct Place {
    uint8_t flags = 0;                 // CharacterClasses
    bool startsSecondary = false;      // SECONDARY, with W and the city after it
    bool startsSuffix = false;         // blanks and SUFFIX, with the rest after them
    bool endsStreet = false;           // the rest after a street name of the last form
    int runEnd = 0;                    // W: its end; here, where none begins
    int blankEnd = 0;                  // blanks: their end; here, where none begin
    int wordEnd = 0;                   // word characters: their end
    int stateEnd = kNowhere;           // STATE, with W before it and W and a ZIP after it
    int cityEnd = kNowhere;            // CITY, lazy, with W and the state after it
    int cityBehind = kNowhere;         // W, greedy: where the city after it begins
    int unitNumberEnd = kNowhere;      // SECONDARYNUMBER2, greedy, with the rest after it
    int unitNumberBehind = kNowhere;   // \W*, greedy: where the unit's number after it begins
    int tailBehind = kNowhere;         // W, greedy: where the unit or the city after it begins
    int digitStreetEnd = kNowhere;     // STREET2, greedy, with POSTDIRECTIONAL1 after it
    int suffixedStreetEnd = kNowhere;  // STREET3, greedy, with SUFFIX2 after it
    int plainStreetEnd = kNowhere;     // STREET4, lazy
    int streetBehind = kNowhere;       // W, greedy: where one of these three after it begins

    bool Is(uint8_t flag) const { return (flags & flag) != 0; }
    bool StartsStreet() const {
      return digitStreetEnd != kNowhere || suffixedStreetEnd != kNowhere ||
             plainStreetEnd != kNowhere;
    }
  };

  TailTable(const PostalWords& words, const CharacterClasses& classes)
      : words_(words), classes_(classes) {}

  // Builds the table of `text`, which must outlive its use. Returns false, without building, where
  // no state has a ZIP code after it: then neither pattern matches anywhere.
  bool Build(std::wstring_view text);

  // The place `at`, from 0 to End().
  const Place& operator[](int at) const { return places_[static_cast<size_t>(at)]; }

  // Where the last state with a ZIP code after it begins. Nothing can begin there or later.
  int End() const { return static_cast<int>(places_.size()) - 1; }

  // Where the designator that SECONDARY takes at `at` ends: one with a number after it, or one
  // that stands alone.
  int NumberedUnitEnd(int at) const;
  int PlainUnitEnd(int at) const;

  // The directional at `at`, and at the end of the blanks at `at`: where it ends, if it is a whole
  // word with the unit or the city after it.
  int PostdirectionalEnd(int at) const;
  int PostdirectionalEndBehindBlanks(int at) const;

  std::wstring_view Word(int at) const;

 private:
  struct StateSpan {
    int begin;
    int end;
  };

  void FindStates();
  void FindStatesBefore(int zip);
  void BuildRuns(int at);
  void BuildCity(int at);
  void BuildUnit(int at);
  void BuildStreet(int at);
  bool HasStateBehind(int at) const;
  bool StartsSecondary(int at) const;
  bool StartsSuffix(int at) const;
  bool EndsDigitStreet(int at) const;
  bool IsBlank(int at) const { return (*this)[at].blankEnd > at; }
  Place& At(int at) { return places_[static_cast<size_t>(at)]; }

  const PostalWords& words_;
  const CharacterClasses& classes_;
  std::wstring_view text_;
  std::vector<StateSpan> states_;
  std::vector<Place> places_;
  mutable std::vector<int> unitEnds_;  // kept for its memory alone
};

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_PARSER_TAILTABLE_H_
