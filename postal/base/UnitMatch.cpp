#include "postal/base/UnitMatch.h"

#include <algorithm>

#include "postal/words/Lexicon.h"

namespace postwright::postal {
namespace {

// "APT 4" is designated by APT, "# 4" and "4" by nothing.
struct Unit {
  explicit Unit(const std::string& text) {
    const size_t blank = text.find(' ');
    const std::string first = text.substr(0, blank);
    const bool designated =
        blank != std::string::npos && (first == "#" || !Lexicon::Get().NumberedUnit(first).empty());
    designator = designated && first != "#" ? first : "";
    number = designated ? text.substr(blank + 1) : text;
  }

  std::string designator;
  std::string number;
};

}  // namespace

std::string FindUnit(const std::vector<std::string>& units, const std::string& asked) {
  if (std::find(units.begin(), units.end(), asked) != units.end()) {
    return asked;
  }
  const Unit given(asked);
  std::string meant;
  for (const std::string& unit : units) {
    const Unit known(unit);
    if (known.number == given.number && (known.designator.empty() || given.designator.empty())) {
      if (!meant.empty() && meant != unit) {
        return {};
      }
      meant = unit;
    }
  }
  return meant;
}

}  // namespace postwright::postal
