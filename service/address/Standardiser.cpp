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
  if (words.empty()) {
    return {};
  }
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

// A delivery line, whatever it names.
struct Delivery {
  Delivery(BoxLine read) : line(std::move(read.line)), aside(std::move(read.aside)) {}
  explicit Delivery(StreetLine read) {
    line = read.Compose();
    // A unit that does not fit goes on the line above (section 213).
    if (JoinWords(line).size() > kLongestLine && !read.units.empty()) {
      aside = std::exchange(read.units, {});
      line = read.Compose();
    }
    street = std::move(read);
  }

  Words line;
  Words aside;  // what does not belong on the line
  std::optional<StreetLine> street;
};

std::optional<Delivery> ReadDelivery(const Words& words, std::string_view state) {
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
    return Delivery(std::move(*street));
  }
  if (IsMilitaryState(state) && !words.empty()) {
    return BoxLine{words, {}};  // a ship's name, "USS CARL VINSON"
  }
  return std::nullopt;
}

// The lines in words, as they are read.
struct LinesInWords {
  explicit LinesInWords(const DeliveryLines& lines)
      : above(SplitLine(lines.address1)),
        delivery(SplitLine(lines.address2)),
        urbanization(SplitLine(lines.urbanization)) {}

  bool operator==(const LinesInWords&) const = default;

  Words above;
  Words delivery;
  Words urbanization;
};

// One reading of the lines.
std::optional<StandardLines> ReadLines(const LinesInWords& asked, std::string_view state) {
  Words above = asked.above;
  Words delivery = asked.delivery;
  if (delivery.empty() ||
      (ReadUnitLine(delivery) && !ReadDelivery(delivery, state) && ReadDelivery(above, state))) {
    std::swap(above, delivery);
  }
  std::string urbanization = StandardUrbanization(asked.urbanization);
  if (state == "PR" && urbanization.empty() && IsUrbanization(above)) {
    urbanization = StandardUrbanization(above);
    above.clear();
  }
  if (state == "PR" && urbanization.empty()) {
    urbanization = StandardUrbanization(TakeUrbanization(delivery));
  }
  std::optional<Delivery> line = ReadDelivery(delivery, state);
  if (!line) {
    return std::nullopt;
  }
  if (above.empty()) {
    above = std::move(line->aside);
  } else {
    line->line.insert(line->line.end(), line->aside.begin(), line->aside.end());
    if (line->street && !line->aside.empty()) {
      line->street->units = std::move(line->aside);
    }
  }
  return StandardLines{
      {JoinWords(ReadSecondLine(above, state)), JoinWords(line->line), std::move(urbanization)},
      std::move(line->street)};
}

}  // namespace

// What one reading puts in order may let the next read more: only lines that stay as they are count
// as standard. Ordinary ones stay after the first.
std::optional<StandardLines> Standardiser::Standardise(const DeliveryLines& asked,
                                                       std::string_view state) {
  constexpr int kMostReadings = 8;
  LinesInWords words(asked);
  std::optional<StandardLines> lines = ReadLines(words, state);
  for (int i = 0; lines && i < kMostReadings; ++i) {
    LinesInWords standard(*lines);
    if (standard == words) {
      return lines;  // what was read once is read alike again
    }
    words = std::move(standard);
    lines = ReadLines(words, state);
  }
  return std::nullopt;
}

}  // namespace postwright::service
