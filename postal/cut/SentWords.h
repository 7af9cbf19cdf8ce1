#ifndef POSTWRIGHT_POSTAL_CUT_SENTWORDS_H_
#define POSTWRIGHT_POSTAL_CUT_SENTWORDS_H_

#include <optional>
#include <string>
#include <string_view>

#include "common/AsciiText.h"

namespace postwright::postal {

// What the sender's parser made of words, and what they were before. It abbreviates what it takes
// for a suffix, a directional or a unit's designator, and writes the letter or digit after a house
// number as an apartment. Pure functions, for any thread.

// The words from one on, and those in front of one.
Words From(const Words& words, size_t at);
Words UpTo(const Words& words, size_t at);
void Append(Words& words, const Words& more);

// Says whether `words`, from the first on, are the city's name: in any abbreviation, with a first
// word that was read as a unit (STE LLA NIAGARA, FRNT ROYAL).
bool AreCity(const Words& words, const std::string& name);

// Joins the words that stand after the delivery line to it. Of a street that the parser took to be
// named by a directional (6101 S MSN, and WAY after it) the type is spelled out again: 6101 S
// MISSION WAY. nullopt where it could have been several words (LN is LANE and LA).
std::optional<Words> JoinStreet(const Words& line, const Words& behind);

// Says whether the line is a number, a directional and a suffix, as the parser leaves a street that
// it has cut too early.
bool IsCutAtType(const Words& line);

// Says whether the parser may have abbreviated the word, so that what it was is not known.
bool MayBeAbbreviated(const std::string& word);

// Puts what stood after the house number there again where that is certain:
//
//   352 LINCOLN WAY APT -B           352B LINCOLN WAY
//   193 ORCHARD DR APT -6            193-6 ORCHARD DR
//   243 4 EL CAMINO REAL APT -1      243 1/4 EL CAMINO REAL
//
// `folded` is one line, before its hyphens are dropped; any other line is returned as it is.
std::string RestoreNumber(std::string_view folded);

// Puts together again what the parser read as a unit although no unit has such a number:
//
//   529 N BCH FL D              529 N BEACH FLD
//   680 CALLE LAS FL ES         680 CALLE LAS FLORES
Words RestoreName(Words line);

// Returns the letter of an APT at the line's end, which the parser writes there also for one after
// the house number; empty for any other line.
std::string LetterAtEnd(const Words& line);

// Moves it from the end to the number: 12 HILL AVE APT A -> 12A HILL AVE.
Words WithLetter(Words line);

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_CUT_SENTWORDS_H_
