#include "core/parser/AddressGrammar.h"

#include <postwright/AddressParser.h>
#include <postwright/Utils.h>

#include <algorithm>
#include <string>
#include <vector>

#include "core/parser/CompiledPattern.h"

namespace postwright {

boost::xpressive::wsregex gAddressRegex;
boost::xpressive::wsregex gPoBoxAddressRegex;
boost::xpressive::wsregex gMilitaryAddressRegex;

namespace {

using Table = AddressGrammar::Table;

std::wstring Alternation(const std::vector<std::wstring>& alternatives) {
  return Utils::JoinStrings(alternatives, L"|", false);
}

// EAST|E|E\.|... : each directional spelled out, abbreviated, and abbreviated with full stops.
std::wstring Directions(const Table& directions) {
  std::vector<std::wstring> alternatives;
  for (const auto& [word, abbreviation] : directions) {
    std::wstring dotted;
    for (const wchar_t letter : abbreviation) {
      dotted += letter;
      dotted += L"\\.";
    }
    alternatives.insert(alternatives.end(), {word, abbreviation, dotted});
  }
  return Alternation(alternatives);
}

// Each written form, and each standard form once, after the first form that stands for it.
std::wstring Suffixes(const Table& suffixes) {
  std::vector<std::wstring> alternatives;
  for (const auto& [written, standard] : suffixes) {
    alternatives.push_back(written);
    if (std::find(alternatives.begin(), alternatives.end(), standard) == alternatives.end()) {
      alternatives.push_back(standard);
    }
  }
  return Alternation(alternatives);
}

std::wstring States(const Table& states) {
  std::vector<std::wstring> alternatives;
  for (const auto& [name, code] : states) {
    alternatives.insert(alternatives.end(), {name, code});
  }
  return Alternation(alternatives);
}

std::wstring Designators(const Table& units) {
  std::vector<std::wstring> alternatives;
  for (const auto& [pattern, standard] : units) {
    alternatives.push_back(pattern);
  }
  return Alternation(alternatives);
}

boost::xpressive::wsregex Compile(const std::wstring& pattern) {
  return CompiledPattern(pattern, boost::xpressive::regex_constants::ignore_white_space);
}

}  // namespace

// Laid out as the patterns nest, to be read as one reads them.
// clang-format off

AddressGrammar::AddressGrammar(const Table& directions, const Table& suffixes, const Table& states,
                               const Table& numberedUnits, const Table& plainUnits) {
  const std::wstring DIRECTIONS = Directions(directions);
  const std::wstring SUFFIXES = Suffixes(suffixes);
  const std::wstring STATES = States(states);
  const std::wstring NUMBERED_UNITS = Designators(numberedUnits);
  const std::wstring PLAIN_UNITS = Designators(plainUnits);

  const std::wstring STATE = L"\\b(?:" + STATES + L")\\b";

  const std::wstring ZIP = L"\\d{5}(?:-?\\d{4})?";

  // A number with a letter or a single digit attached, a fraction, a plain number, a grid number.
  const std::wstring NUMBER =
      LR"((?:(?P<NUMBER1>\d+)(?P<SECONDARYNUMBER1>(-[0-9])|(-?[A-Z]))(?=\b)))"
      LR"(|(?P<NUMBER2>\d+[\-\ ]?\d+\/\d+))"
      LR"(|(?P<NUMBER3>\d+-?\d*))"
      LR"(|(?P<NUMBER4>[NSWE]\ ?\d+\ ?[NSWE]\ ?\d+))";

  // A directional that is the street's name; or, after an optional directional, a name that ends
  // in a digit with a directional after it, a name with a suffix, or any other name.
  const std::wstring STREET =
      L"(?:(?P<STREET1>" + DIRECTIONS + L")\\W+"
      L"(?P<SUFFIX1>" + SUFFIXES + L")\\b)"
      L"|"
      L"(?:(?P<PREDIRECTIONAL1>" + DIRECTIONS + L")\\W+)?"
      L"(?:"
        L"(?P<STREET2>[^,]*\\d)"
        L"(?:[^\\w,]*(?P<POSTDIRECTIONAL1>" + DIRECTIONS + L")\\b)"
        L"|"
        L"(?P<STREET3>[^,]+)"
        L"(?:[^\\w,]+(?P<SUFFIX2>" + SUFFIXES + L")\\b)"
        L"(?:[^\\w,]+(?P<POSTDIRECTIONAL2>" + DIRECTIONS + L")\\b)?"
        L"|"
        L"(?P<STREET4>[^,]+?)"
        L"(?:[^\\w,]+(?P<SUFFIX3>" + SUFFIXES + L")\\b)?"
        L"(?:[^\\w,]+(?P<POSTDIRECTIONAL3>" + DIRECTIONS + L")\\b)?"
      L")";

  // The look-ahead cannot fail on a text in upper case.
  const std::wstring NUMBERED_UNIT = L"(?P<SECONDARYUNIT1>" + NUMBERED_UNITS + L")(?![a-z])";

  const std::wstring PLAIN_UNIT = L"(?P<SECONDARYUNIT2>" + PLAIN_UNITS + L")\\b";

  // "(:?" is meant: a colon may stand before a designator that takes a number.
  const std::wstring SECONDARY =
      L"("
        L"(:?"
          L"(?:"
            L"(?:" + NUMBERED_UNIT + L"\\W*)"
            L"|"
            L"(?P<SECONDARYUNIT3>\\#)\\W*"
          L")"
          L"(?P<SECONDARYNUMBER2>[\\w-]+)"
        L")"
        L"|"
        + PLAIN_UNIT +
      L"),?";

  const std::wstring CITY_STATE = L"(?P<CITY>[^\\d,]+?)\\W+(?P<STATE>" + STATE + L")";

  const std::wstring CITY_STATE_ZIP = L"(?:" + CITY_STATE + L"\\W*)(?:(?P<ZIP>" + ZIP + L"))";

  address =
      L"("
        L"[^\\w\\#]*"
        L"(?:" + NUMBER + L")\\W*"
        L"(?:" + STREET + L")\\W+"
        L"(?:" + SECONDARY + L"\\W+)?"
        L"(?:" + CITY_STATE_ZIP + L")\\W*"
      L")";

  poBox =
      L"("
        L"\\W*"
        L"(?P<STREETLINE>(P[\\.\\ ]?O[\\.\\ ]?\\ )?BOX\\ [0-9]+)\\W+"
        + CITY_STATE_ZIP + L"\\W*"
      L")";

  military =
      L"("
        L"[^\\w\\#]*"
        L"(?P<STREETLINE>.+?)"
        L"(?P<CITY>[AFD]PO)\\W+"
        L"(?P<STATE>A[AEP])\\W+"
        L"(?P<ZIP>" + ZIP + L")\\W*"
      L")";
}

// clang-format on

void AddressParser::InitializeRegex() {
  const AddressGrammar grammar(directionMap_, suffixMap_, stateMap_, numberedUnitMap_,
                               plainUnitMap_);
  gAddressRegex = Compile(grammar.address);
  gPoBoxAddressRegex = Compile(grammar.poBox);
  gMilitaryAddressRegex = Compile(grammar.military);
}

}  // namespace postwright
