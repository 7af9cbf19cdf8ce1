#ifndef POSTWRIGHT_POSTAL_BASE_UNITRANGE_H_
#define POSTWRIGHT_POSTAL_BASE_UNITRANGE_H_

#include <string>

namespace postwright::postal {

// Units of a building from one to another: which are possible, not which are there.
struct UnitRange {
  std::string designator;  // "APT"; empty where it is not known
  std::string low;         // a number, or a letter
  std::string high;
  std::string parity;  // E, O or B
  std::string zip4;    // empty where it is not known

  // Says whether a standard unit, "APT 4", lies in it; "# 4" may be any of that number.
  bool Holds(const std::string& unit) const;
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_BASE_UNITRANGE_H_
