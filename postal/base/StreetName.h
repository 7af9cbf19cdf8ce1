#ifndef POSTWRIGHT_POSTAL_BASE_STREETNAME_H_
#define POSTWRIGHT_POSTAL_BASE_STREETNAME_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "postal/lines/StreetLine.h"

namespace postwright::postal {

// A street without its house numbers, each element in standard form; all but the name may be empty.
struct StreetName {
  std::string predirectional;
  std::string name;
  std::string suffix;
  std::string postdirectional;
  std::string urbanization;  // Puerto Rico alone: "URB LAS GLADIOLAS"

  bool operator==(const StreetName&) const = default;
};

// A street of an address base, by its row there; 0 for one that has none.
struct KnownStreet {
  int64_t id = 0;
  StreetName street;
};

// Returns the street of a delivery line.
StreetName StreetNameOf(const StreetLine& line, std::string_view urbanization);

// Returns "N MAIN ST" as in a delivery line.
std::string ComposeStreet(const StreetName& street);

// Returns what the writings of one name have in common: blanks do not count, FIRST is 1ST, SAINT is
// ST, MOUNT is MT, FORT is FT. Names of different streets may share it; then they are told apart by
// the rest.
std::string StreetKey(std::string_view name);

// Returns all elements in one text, and the street of such a text. Each element ends with a line
// feed, which none has, so that no text begins with another.
std::string PackStreet(const StreetName& street);
StreetName UnpackStreet(std::string_view packed);

// Returns the words of a street in the shortest form that each has: NORTH is N, HILL is HL, SAINT
// ST; TWENTY-FIRST and 21ST are 21.
Words ShortStreetWords(const Words& words);

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_BASE_STREETNAME_H_
