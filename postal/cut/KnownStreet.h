#ifndef POSTWRIGHT_POSTAL_CUT_KNOWNSTREET_H_
#define POSTWRIGHT_POSTAL_CUT_KNOWNSTREET_H_

#include <string>

#include "common/AsciiText.h"
#include "postal/base/JoinedReader.h"

namespace postwright::postal {

// What a base knows of a delivery line before it is decided how that is cut. One thread.

// Says whether the base has the line's street, as it is written, in the ZIP code.
bool KnowsStreet(JoinedReader& reader, const std::string& zip5, const std::string& state,
                 const Words& line);

// Joins a house number and the letter after it where the base has the street with both as one
// alone: 356 A LINCOLN WAY is 356A LINCOLN WAY. Returns false where nothing was done.
bool JoinKnownLetter(JoinedReader& reader, const std::string& zip5, const std::string& state,
                     Words& line);

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_CUT_KNOWNSTREET_H_
