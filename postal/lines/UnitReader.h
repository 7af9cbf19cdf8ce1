#ifndef POSTWRIGHT_POSTAL_LINES_UNITREADER_H_
#define POSTWRIGHT_POSTAL_LINES_UNITREADER_H_

#include <optional>

#include "common/AsciiText.h"

namespace postwright::postal {

// Takes the units off the end of a delivery line and returns them in standard form, first to last:
// of "12 MAIN ST BUILDING 4 APARTMENT NO 2" it leaves "12 MAIN ST" and returns "BLDG 4 APT 2".
// The first `kept` words are never part of a unit, since the street needs a name.
//
// USPS Publication 28, appendix C2 and section 213. A word such as FRONT or SIDE that may end a
// street's name counts as a unit after a plain street type alone ("12 MAIN ST FRONT", but "12
// OCEAN FRONT"). A second address that names a box ends the line like a unit: "PO BOX 12".
Words TakeUnits(Words& words, size_t kept);

// Returns a line that holds units and nothing else in standard form ("Suite #700" -> "STE 700");
// nullopt for any other line.
std::optional<Words> ReadUnitLine(const Words& words);

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_LINES_UNITREADER_H_
