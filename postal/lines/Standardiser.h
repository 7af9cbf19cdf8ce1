#ifndef POSTWRIGHT_POSTAL_LINES_STANDARDISER_H_
#define POSTWRIGHT_POSTAL_LINES_STANDARDISER_H_

#include <optional>
#include <string>
#include <string_view>

#include "common/AsciiText.h"
#include "postal/lines/StreetLine.h"

namespace postwright::postal {

// The lines above the last line, as they were asked for or in standard form: folded text.
struct DeliveryLines {
  std::string address1;  // the unit, or a line above the delivery line
  std::string address2;  // the delivery line
  std::string urbanization;

  bool operator==(const DeliveryLines&) const = default;
};

// Lines in standard form. `street` is the delivery line in its elements, where it names a street.
struct StandardLines : DeliveryLines {
  std::optional<StreetLine> street;

  const DeliveryLines& Lines() const { return *this; }
};

// Brings delivery lines into the standard form of USPS Publication 28; docs/standardiser.md is the
// table of its rules.
//
//   Standardiser::Standardise({"Suite 700", "445 grant avenue", ""}, "CA");
//   // {"STE 700", "445 GRANT AVE", ""}
//
// What is standard already stays as it is. Needs no address base: it knows how lines are written,
// not whether the street exists. Pure, for any thread.
class Standardiser {
 public:
  // `asked` is folded text (FoldToAscii), the fields in either order: where Address1 holds the
  // street and Address2 the unit, or nothing, they change places. `state` is the two-letter code of
  // the address, or empty. Returns nullopt where there is no delivery line of a known form.
  static std::optional<StandardLines> Standardise(const DeliveryLines& asked,
                                                  std::string_view state);
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_LINES_STANDARDISER_H_
