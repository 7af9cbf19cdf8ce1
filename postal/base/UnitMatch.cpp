#include "postal/base/UnitMatch.h"

#include <algorithm>

#include "common/AsciiText.h"
#include "postal/words/Lexicon.h"

namespace postwright::postal {
namespace {

// One unit: "APT 4" is designated by APT, "# 4" and "4" by nothing.
struct Unit {
  std::string designator;
  std::string number;  // so that 01 is 1, and 2-A and 2 A are 2A
};

std::string WithoutZerosAndHyphens(std::string_view word) {
  word.remove_prefix(std::min(word.find_first_not_of('0'), word.size()));
  std::string number;
  for (size_t i = 0; i < word.size(); ++i) {
    const bool parts = word[i] == '-' && i > 0 && i + 1 < word.size() &&
                       IsDigit(word[i - 1]) != IsDigit(word[i + 1]);
    number += parts ? "" : std::string(1, word[i]);
  }
  return number;
}

// "BLDG 4 APT 2 B" is two units.
std::vector<Unit> ReadUnits(const std::string& text) {
  std::vector<Unit> units;
  const Words words = SplitLine(text);
  for (size_t i = 0; i < words.size(); ++i) {
    const bool isDesignator = words[i] == "#" || (words[i].size() > 1 && !HasDigit(words[i]));
    if (isDesignator || units.empty()) {
      units.push_back({isDesignator && words[i] != "#" ? words[i] : "", ""});
    }
    if (!isDesignator) {
      units.back().number += WithoutZerosAndHyphens(words[i]);
    }
  }
  return units;
}

// People take one of these for another; a floor or a building is not an apartment.
bool IsInterchangeable(const std::string& designator) {
  static constexpr std::string_view kDesignators[] = {"APT", "DEPT", "LOT",  "OFC", "RM",
                                                      "SPC", "STE",  "TRLR", "UNIT"};
  return std::find(std::begin(kDesignators), std::end(kDesignators), designator) !=
         std::end(kDesignators);
}

bool IsAlike(const Unit& known, const Unit& given, bool mayBeAnother) {
  const bool same =
      known.designator == given.designator || known.designator.empty() || given.designator.empty();
  return known.number == given.number && !known.number.empty() &&
         (same || (mayBeAnother && IsInterchangeable(known.designator) &&
                   IsInterchangeable(given.designator)));
}

// Returns those of the units that are alike.
std::vector<std::string> AlikeUnits(const std::vector<std::string>& units, const std::string& asked,
                                    bool mayBeAnother) {
  const std::vector<Unit> given = ReadUnits(asked);
  std::vector<std::string> alike;
  std::copy_if(units.begin(), units.end(), std::back_inserter(alike), [&](const std::string& unit) {
    const std::vector<Unit> known = ReadUnits(unit);
    return std::equal(known.begin(), known.end(), given.begin(), given.end(),
                      [&](const Unit& there, const Unit& wanted) {
                        return IsAlike(there, wanted, mayBeAnother);
                      });
  });
  return alike;
}

}  // namespace

std::string FindUnit(const std::vector<std::string>& units, const std::string& asked) {
  if (std::find(units.begin(), units.end(), asked) != units.end()) {
    return asked;
  }
  for (const bool mayBeAnother : {false, true}) {
    const std::vector<std::string> meant = AlikeUnits(units, asked, mayBeAnother);
    if (!meant.empty()) {
      return meant.size() == 1 ? meant[0] : std::string();
    }
  }
  return {};
}

bool HasUnit(const std::vector<std::string>& units, const std::string& asked) {
  return !AlikeUnits(units, asked, false).empty();
}

}  // namespace postwright::postal
