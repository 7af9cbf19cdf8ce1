#ifndef POSTWRIGHT_CORE_REVIEW_LINEKIND_H_
#define POSTWRIGHT_CORE_REVIEW_LINEKIND_H_

#include "core/review/LabelLines.h"

#include <postwright/AddressLines.h>

#include <cstdint>
#include <string>
#include <vector>

namespace postwright {

// What a line of a label can be, told from itself alone.
enum class LineKind : std::uint8_t {
  kOther,        // a name, a company, a note
  kHouse,        // a house number and something behind it
  kBox,          // a post-office box with a number
  kLetteredBox,  // a post-office box with a letter in its number
  kRoute,        // a rural route, highway contract route or star route
  kMilitary,     // PSC, CMR or UNIT with a number; a ship
  kUnit,         // a unit within a building and nothing else
  kAside,        // "Attn: Jane Doe", "c/o Smith"
};

LineKind KindOf(const LabelPiece& piece);

// Is the last word of `upper` a street suffix or a directional behind a name, or is there one with
// a unit behind it? Such a line is a street's, and not a company's.
bool EndsAsStreet(const std::wstring& upper);

// Is the last word of `upper` one that companies and institutions end with ("Inc", "Church")?
bool EndsAsCompany(const std::wstring& upper);

// Where in a line a house number, box, route or military unit begins behind words without digits;
// npos where none does.
std::size_t FindDelivery(const LabelPiece& piece);

// The line as it is asked about: what the grammar cannot read is respelled, and each respelling is
// added to `respellings`. For a line of the kinds kHouse, kBox and kUnit.
std::wstring Respell(const LabelPiece& piece, LineKind kind,
                     std::vector<RespelledWords>& respellings);

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_REVIEW_LINEKIND_H_
