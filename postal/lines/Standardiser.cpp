#include "postal/lines/Standardiser.h"

#include <algorithm>
#include <utility>

#include "postal/lines/BoxLine.h"
#include "postal/lines/PuertoRico.h"
#include "postal/lines/StreetLine.h"
#include "postal/lines/UnitReader.h"
#include "postal/words/Lexicon.h"

namespace postwright::postal {
namespace {

// A second line: a unit in standard form, another delivery line, or text that only loses its
// punctuation. A lone hyphen, which clients send for "none", is not a word.
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
  explicit Delivery(StreetLine&& read) {
    line = read.Compose();
    street = std::move(read);
  }

  Words line;
  Words aside;  // what does not belong on the line
  Words above;  // and what belongs above it
  std::optional<StreetLine> street;
};

// "EMPIRE STATE BUILDING 350 5TH AVE": the building's name belongs on the line above.
std::optional<Delivery> ReadBehindBuilding(const Words& words, std::string_view state) {
  static constexpr std::string_view kBuildings[] = {"BLDG", "BUILDING", "CENTER", "CENTRE",
                                                    "HALL", "PLAZA",    "TOWER",  "TOWERS"};
  const auto number = std::find_if(words.begin(), words.end(),
                                   [](const std::string& word) { return HasDigit(word); });
  if (number - words.begin() < 2 || number == words.end() || !IsDigit((*number)[0]) ||
      std::find(std::begin(kBuildings), std::end(kBuildings), *(number - 1)) ==
          std::end(kBuildings)) {
    return std::nullopt;
  }
  auto street = ReadStreet(Words(number, words.end()), state);
  if (!street || street->suffix.empty()) {
    return std::nullopt;
  }
  std::optional<Delivery> read(std::in_place, std::move(*street));
  read->above = Words(words.begin(), number);
  return read;
}

std::optional<Delivery> ReadDelivery(const Words& words, std::string_view state) {
  if (Lexicon::Get().IsMilitaryState(state)) {
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
    // What comes after a box may be a second address: it stays on the line (section 215).
    const Words rest = ReadSecondLine(box->aside, state);
    box->line.insert(box->line.end(), rest.begin(), rest.end());
    return BoxLine{box->line, {}};
  }
  if (auto road = state == "PR" ? ReadKilometre(words) : std::nullopt) {
    return road;
  }
  if (auto street = ReadStreet(words, state)) {
    return std::optional<Delivery>(std::in_place, std::move(*street));
  }
  if (auto street = ReadBehindBuilding(words, state)) {
    return street;
  }
  if (Lexicon::Get().IsMilitaryState(state) && !words.empty()) {
    return BoxLine{words, {}};  // a ship's name, "USS CARL VINSON"
  }
  return std::nullopt;
}

// The lines in words.
struct LinesInWords {
  bool operator==(const LinesInWords&) const = default;

  DeliveryLines Join() const {
    return {JoinWords(above), JoinWords(delivery), JoinWords(urbanization)};
  }

  Words above;
  Words delivery;
  Words urbanization;
};

LinesInWords Split(const DeliveryLines& lines) {
  return {SplitLine(lines.address1), SplitLine(lines.address2), SplitLine(lines.urbanization)};
}

// What one reading makes of the lines.
struct Reading {
  LinesInWords lines;
  std::optional<StreetLine> street;
};

std::optional<Reading> ReadLines(const LinesInWords& asked, std::string_view state) {
  Words above = asked.above;
  Words delivery = asked.delivery;
  if (delivery.empty() ||
      (ReadUnitLine(delivery) && !ReadDelivery(delivery, state) && ReadDelivery(above, state))) {
    std::swap(above, delivery);
  }
  Words urbanization = StandardUrbanization(asked.urbanization);
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
  if (!line->above.empty()) {
    if (!above.empty()) {
      return std::nullopt;
    }
    above = std::move(line->above);
  } else if (above.empty()) {
    above = std::move(line->aside);
  } else {
    line->line.insert(line->line.end(), line->aside.begin(), line->aside.end());
    if (line->street && !line->aside.empty()) {
      line->street->units = std::move(line->aside);
    }
  }
  return Reading{{ReadSecondLine(above, state), std::move(line->line), std::move(urbanization)},
                 std::move(line->street)};
}

}  // namespace

// What one reading puts in order may let the next read more: only lines that stay as they are count
// as standard. Ordinary ones stay after the first.
std::optional<StandardLines> Standardiser::Standardise(const DeliveryLines& asked,
                                                       std::string_view state) {
  constexpr int kMostReadings = 8;
  LinesInWords words = Split(asked);
  for (int i = 0; i < kMostReadings; ++i) {
    std::optional<Reading> read = ReadLines(words, state);
    if (!read) {
      break;
    }
    DeliveryLines lines = read->lines.Join();
    if (read->lines != words) {
      read->lines = Split(lines);  // as they are read when they are asked for again
    }
    if (read->lines == words) {
      return StandardLines{std::move(lines), std::move(read->street)};
    }
    words = std::move(read->lines);
  }
  return std::nullopt;
}

}  // namespace postwright::postal
