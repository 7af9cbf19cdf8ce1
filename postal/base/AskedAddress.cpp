#include "postal/base/AskedAddress.h"

#include "postal/lines/StreetLine.h"
#include "postal/lines/UnitReader.h"

namespace postwright::postal {
namespace {

// A bare unit in the line above: "4B", "A".
bool IsBareUnit(const Words& words) {
  return words.size() == 1 && (HasDigit(words[0]) || words[0].size() <= 2);
}

}  // namespace

AskedAddress::AskedAddress(const AddressQuestion& asked) : question(asked) {
  const std::optional<StreetLine>& line = asked.lines.street;
  if (line) {
    address.number = JoinWords(line->number);
    address.street = StreetNameOf(*line, asked.lines.urbanization);
    address.unit = JoinWords(line->units);
  }
  std::string& unit = address.unit;
  if (unit.empty()) {
    const Words above = SplitLine(asked.lines.address1);
    unitIsAbove = ReadUnitLine(above) || IsBareUnit(above);
    unit = unitIsAbove ? JoinWords(above) : unit;
  }
  if (unit.starts_with("PO BOX")) {
    unit.clear();  // a second address, not a unit of this one
  }
}

}  // namespace postwright::postal
