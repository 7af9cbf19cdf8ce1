#ifndef POSTWRIGHT_POSTAL_BASE_UNITMATCH_H_
#define POSTWRIGHT_POSTAL_BASE_UNITMATCH_H_

#include <string>
#include <vector>

namespace postwright::postal {

// Returns which of a building's units is meant by `asked`; all are standard, "APT 4". Zeros in
// front of a number and a hyphen between number and letter do not count. A unit that is announced
// by # alone, or by nothing, on either side is any of that number, if there is only one; so is one
// that people call an apartment, a suite, a room or a unit alike, where none is called as it was
// asked for. The empty text where none is meant, or not only one.
std::string FindUnit(const std::vector<std::string>& units, const std::string& asked);

// Says whether the building has the unit, called as it was asked for.
bool HasUnit(const std::vector<std::string>& units, const std::string& asked);

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_BASE_UNITMATCH_H_
