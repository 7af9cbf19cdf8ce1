#ifndef POSTWRIGHT_POSTAL_BASE_ASKEDADDRESS_H_
#define POSTWRIGHT_POSTAL_BASE_ASKEDADDRESS_H_

#include <string>
#include <variant>

#include "postal/base/StreetMatcher.h"
#include "postal/lines/Standardiser.h"
#include "postal/places/LastLine.h"

namespace postwright::postal {

// An address as far as it is known without streets.
struct AddressQuestion {
  LastLine asked;                                // folded, as it came
  std::variant<PlacedLine, Rejection> lastLine;  // what LastLineChecker said of it
  std::string state;                             // that the lines were standardised for
  StandardLines lines;
  std::string firm = {};  // folded
};

// The delivery line of a question, read. Borrows the question.
struct AskedAddress {
  explicit AskedAddress(const AddressQuestion& asked);

  bool HasStreet() const { return !address.number.empty(); }

  const AddressQuestion& question;
  StreetQuestion address;
  bool unitIsAbove = false;  // in the line above
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_BASE_ASKEDADDRESS_H_
