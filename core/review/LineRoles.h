#ifndef POSTWRIGHT_CORE_REVIEW_LINEROLES_H_
#define POSTWRIGHT_CORE_REVIEW_LINEROLES_H_

#include <vector>

#include "core/review/LabelWords.h"

namespace postwright {

// What a word is in its label (USPS Publication 28, section 2).
enum class Role {
  Name,  // a line above or below the address
  HouseNumber,
  Predirectional,
  Street,  // the street's name
  Suffix,
  Postdirectional,
  Unit,  // designators and their numbers
  Box,   // a delivery line that begins with a box, a route, or a military unit
  Urbanization,
  City,
  State,
  Zip,
  Zip4
};

inline bool IsDeliveryLine(Role role) {
  return role >= Role::HouseNumber && role <= Role::Box;
}
inline bool IsLastLine(Role role) {
  return role >= Role::City;
}

// Returns the role of each word of a label: the last line that ends in state and ZIP code is the
// last line of the address, the line above it the delivery line; in a label of one line a comma
// separates the two. Where there is no such line, all words are names.
std::vector<Role> FindRoles(const std::vector<LabelWord>& words);

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_REVIEW_LINEROLES_H_
