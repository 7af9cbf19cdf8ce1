#ifndef POSTWRIGHT_CORE_REVIEW_LINERESPELLING_H_
#define POSTWRIGHT_CORE_REVIEW_LINERESPELLING_H_

#include "core/review/LabelLines.h"
#include "core/review/LineKind.h"

#include <postwright/AddressLines.h>

#include <string>
#include <string_view>
#include <vector>

namespace postwright {

// The line as it is asked about: what the grammar cannot read is respelled, and each respelling is
// added to `respellings`. For a line of the kinds kHouse, kHouseInWords, kHouseBehind, kBox and
// kUnit.
std::wstring Respell(const LabelPiece& piece, LineKind kind,
                     std::vector<RespelledWords>& respellings);

// The letter of a house number that is written with a hyphen in front of it, "A" of "352-A Main
// St"; "" of any other line. The grammar takes such a letter for a unit's, and drops it where there
// is a unit.
std::wstring LetterOfNumber(std::wstring_view line);

// Separates that letter from the number: "352 A Main St, Apt 4". The grammar takes it for the first
// word of the street's name, and keeps it. Returns `line` as it is where the letter would be read
// as a directional, or where there is none. The number's respelling becomes that one.
std::wstring WithLetterApart(const std::wstring& line, std::vector<RespelledWords>& respellings);

// Joins the letter to its number again, in the first words of a corrected delivery line: 352 A MAIN
// ST is 352A MAIN ST, where the respelling says that this was typed.
void JoinLetter(std::wstring& line, const std::vector<RespelledWords>& respellings);

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_REVIEW_LINERESPELLING_H_
