#include "service/address/Standardiser.h"

#include <algorithm>
#include <utility>

#include "service/address/BoxLine.h"
#include "service/address/PuertoRico.h"
#include "service/address/StreetLine.h"
#include "service/address/UnitReader.h"

namespace postwright::service {
namespace {

// Letters that a line of the Verify interface has room for.
constexpr size_t kLongestLine = 38;

bool IsMilitaryState(std::string_view state) {
  return state == "AA" || state == "AE" || state == "AP";
}

// A second line: a unit in standard form, another delivery line, or text that only loses its
// punctuation. A lone hyphen, which clients send for "none", is no word.
Words ReadSecondLine(const Words& words, std::string_view state) {
  if (auto units = ReadUnitLine(words)) {
    return *units;
  }
  if (const auto box = ReadPostOfficeBox(words)) {
    return box->aside.empty() ? box->line : words;
  }
  if (const auto street = words.size() > 2 ? ReadStreet(words, state) : std::nullopt) {
    return street->Compose();
  }
  return words;
}

// Reads one delivery line; what does not belong on it is set aside.
std::optional<BoxLine> ReadDelivery(const Words& words, std::string_view state) {
  if (IsMilitaryState(state)) {
    if (auto line = ReadMilitary(words)) {
      return line;
    }
  }
  for (const auto read : {&ReadGeneralDelivery, &ReadRoute}) {
    if (auto line = read(words)) {
      return line;
    }
  }
  if (auto box = ReadPostOfficeBox(words)) {
    // What stands behind a box may be a second address: it stays on the line (section 215).
    const Words rest = ReadSecondLine(box->aside, state);
    box->line.insert(box->line.end(), rest.begin(), rest.end());
    return BoxLine{box->line, {}};
  }
  if (auto street = ReadStreet(words, state)) {
    // A unit that does not fit goes on the line above (section 213).
    const bool fits = JoinWords(street->Compose()).size() <= kLongestLine;
    const Words aside = fits ? Words() : std::exchange(street->units, {});
    return BoxLine{street->Compose(), aside};
  }
  if (IsMilitaryState(state) && !words.empty()) {
    return BoxLine{words, {}};  // a ship's name, "USS CARL VINSON"
  }
  return std::nullopt;
}

// One reading of the lines.
std::optional<DeliveryLines> ReadLines(const DeliveryLines& asked, std::string_view state) {
  Words above = SplitLine(asked.address1);
  Words delivery = SplitLine(asked.address2);
  if (delivery.empty() ||
      (ReadUnitLine(delivery) && !ReadDelivery(delivery, state) && ReadDelivery(above, state))) {
    std::swap(above, delivery);
  }
  std::string urbanization = StandardUrbanization(SplitLine(asked.urbanization));
  if (state == "PR" && urbanization.empty() && IsUrbanization(above)) {
    urbanization = StandardUrbanization(above);
    above.clear();
  }
  if (state == "PR" && urbanization.empty()) {
    urbanization = StandardUrbanization(TakeUrbanization(delivery));
  }
  std::optional<BoxLine> line = ReadDelivery(delivery, state);
  if (!line) {
    return std::nullopt;
  }
  if (above.empty()) {
    above = std::move(line->aside);
  } else {
    line->line.insert(line->line.end(), line->aside.begin(), line->aside.end());
  }
  return DeliveryLines{JoinWords(ReadSecondLine(above, state)), JoinWords(line->line),
                       std::move(urbanization)};
}

}  // namespace

// What one reading puts in order may let the next read more: only lines that stay as they are count
// as standard. Ordinary ones stay after the first.
std::optional<DeliveryLines> Standardiser::Standardise(const DeliveryLines& asked,
                                                       std::string_view state) {
  constexpr int kMostReadings = 8;
  std::optional<DeliveryLines> lines = ReadLines(asked, state);
  for (int i = 1; lines && i < kMostReadings; ++i) {
    std::optional<DeliveryLines> again = ReadLines(*lines, state);
    if (again == lines) {
      return lines;
    }
    lines = std::move(again);
  }
  return std::nullopt;
}

}  // namespace postwright::service
