#ifndef POSTWRIGHT_CORE_REVIEW_LINEKIND_H_
#define POSTWRIGHT_CORE_REVIEW_LINEKIND_H_

#include "core/review/LabelLines.h"

#include <cstdint>
#include <string>
#include <vector>

namespace postwright {

// What a line of a label can be, judged by itself.
enum class LineKind : std::uint8_t {
  kOther,            // a name, a company, a note
  kHouse,            // a house number and something after it
  kHouseInWords,     // the same with the number in words: "One Main St", "Two 20th St"
  kHouseBehind,      // a Spanish street with its number after: "Calle Sol #288"
  kBlockHouse,       // a Spanish street by block or kilometre: "C10 Calle 6", "Carr 129 Km 20.1"
  kBox,              // a post-office box with a number
  kLetteredBox,      // a post-office box with a letter in its number
  kGeneralDelivery,  // "General Delivery"
  kRoute,            // a rural route, highway contract route or star route
  kMilitary,         // PSC, CMR or UNIT with a number; a ship
  kUnit,             // a unit within a building and nothing else
  kAside,            // "Attn: Jane Doe", "c/o Smith"
};

LineKind KindOf(const LabelPiece& piece);

// Is the last word of `upper` a street suffix or a directional after a name, or is there one with
// a unit after it? Such a line is a street's, and not a company's.
bool EndsAsStreet(const std::wstring& upper);

// Is the last word of `upper` one that companies and institutions end with ("Inc", "Church")?
bool EndsAsCompany(const std::wstring& upper);

// Where in a line a house number, box, route or military unit begins after words without digits;
// npos where none does.
std::size_t FindDelivery(const LabelPiece& piece);

// What a floor looks like in words or with an ordinal, in upper case: "2ND FLOOR", "SECOND FL".
std::wstring FloorPattern();

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_REVIEW_LINEKIND_H_
