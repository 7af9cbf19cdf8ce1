#ifndef POSTWRIGHT_POSTAL_LINES_STREETLINE_H_
#define POSTWRIGHT_POSTAL_LINES_STREETLINE_H_

#include <optional>
#include <string>
#include <string_view>

#include "common/AsciiText.h"

namespace postwright::postal {

// A delivery line with house number and street, in its elements and in standard form (USPS
// Publication 28, section 23). Each may be empty but the number and the name.
struct StreetLine {
  Words number;  // "12", "12 1/2", "N6W23001"
  std::string predirectional;
  Words name;
  std::string suffix;
  std::string postdirectional;
  Words units;  // "APT 4", "BLDG 4 APT 2"

  // Returns the elements in order, one blank between them.
  Words Compose() const;
};

// Reads house number, directionals, name, suffix and units, from the ends to the middle:
//
//   ReadStreet(SplitLine("12 NORTH MAIN STREET APARTMENT 4"), "TX")->Compose();
//   // 12 N MAIN ST APT 4
//
// `state` is the address's two-letter code or empty; it decides on highway names and on the order
// of the elements in Puerto Rico. Returns nullopt where there is no house number or no name.
//
// A street whose whole name is a directional or a suffix keeps it (419 SOUTH BLVD, E ST, AVENUE E);
// of two suffixes only the second is abbreviated, and the first is spelled out.
std::optional<StreetLine> ReadStreet(Words words, std::string_view state);

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_LINES_STREETLINE_H_
