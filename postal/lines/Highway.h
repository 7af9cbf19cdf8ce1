#ifndef POSTWRIGHT_POSTAL_LINES_HIGHWAY_H_
#define POSTWRIGHT_POSTAL_LINES_HIGHWAY_H_

#include <string_view>

#include "common/AsciiText.h"

namespace postwright::postal {

// Writes the highway that a street's name begins with in its standard form: "CNTY RD 33" becomes
// "COUNTY ROAD 33", "I-10" "INTERSTATE 10", "US HWY 41" "US HIGHWAY 41". A road is read as one by
// its number alone, so "COUNTY ROAD" by itself stays a street's name.
//
// `name` is what comes after house number and predirectional; `state` the two-letter code of the
// address, or empty: it tells that KY 1207 is a highway in Kentucky. Returns how many words at the
// front of `name` are the highway's own and must not be abbreviated; 0 where there is no highway.
//
// USPS Publication 28, appendix F.
size_t StandardiseHighway(Words& name, std::string_view state);

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_LINES_HIGHWAY_H_
