#include "postal/base/UnitRange.h"

#include "common/AsciiText.h"
#include "postal/base/HouseNumber.h"

namespace postwright::postal {

bool UnitRange::Holds(const std::string& unit) const {
  const Words words = SplitLine(unit);
  if (words.size() != 2 || (words[0] != designator && words[0] != "#" && !designator.empty())) {
    return false;
  }
  const std::string& number = words[1];
  const auto range = NumberRange::Read(low, high, parity);
  if (!range) {
    return low.size() == 1 && high.size() == 1 && number.size() == 1 && low <= number &&
           number <= high;
  }
  const auto read = HouseNumber::Read(number);
  return read && range->Holds(*read);
}

}  // namespace postwright::postal
