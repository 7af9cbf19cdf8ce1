#ifndef POSTWRIGHT_POSTAL_PLACES_CITYNAME_H_
#define POSTWRIGHT_POSTAL_PLACES_CITYNAME_H_

#include <optional>
#include <string>
#include <string_view>

namespace postwright::postal {

// How city names are written and when two of them mean the same place. Names are folded text
// (FoldToAscii). Pure functions, for any thread.

// Returns `folded` as a last line has it: "WINSTON-SALEM" -> "WINSTON SALEM", "O'FALLON" ->
// "O FALLON", "ST. PAUL" -> "ST PAUL".
std::string StandardCity(std::string_view folded);

// Returns what two writings of one name have in common: E and EAST, SAINT and ST, HEIGHTS and HTS
// are the same, and blanks do not count.
std::string CityKey(std::string_view standardCity);

enum class CityFit {
  Same,          // the same name, perhaps with other abbreviations
  Abbreviation,  // a shortened form: RCHO STA MARG, CHRISTIANSBRG, the initials SF
  Near,          // one letter off, two in names of nine letters and more
  Part,          // the first word is missing: VEGAS; LOUIS, whose ST was read as a street's
  Different,
};

// Says how `given` fits the name of the ZIP list. Both are standard; neither is empty.
CityFit CompareCity(std::string_view given, std::string_view known);

// Returns how many letters apart two keys are, where that is few enough for one to be a misspelling
// of the other; nullopt where it is not.
std::optional<size_t> NearDistance(std::string_view key, std::string_view other);

// Says whether one of two different texts can be the other with one letter missing, too many or
// another, or with two neighbours that changed places. A digit is not a letter.
bool DiffersByOneLetter(std::string_view a, std::string_view b);

// Returns the form of at most 13 letters that the postal service prints where it follows from the
// usual abbreviations (E STROUDSBURG); the empty text for a name that is short already and for one
// whose approved abbreviation only the postal service's own City State file could tell.
std::string AbbreviateCity(std::string_view standardCity);

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_PLACES_CITYNAME_H_
