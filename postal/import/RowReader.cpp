#include "postal/import/RowReader.h"

#include <algorithm>

#include "common/AsciiText.h"
#include "common/Encoding.h"
#include "postal/base/BoxAddress.h"
#include "postal/lines/BoxLine.h"
#include "postal/lines/PuertoRico.h"
#include "postal/lines/StreetLine.h"
#include "postal/lines/UnitReader.h"
#include "postal/places/CityName.h"
#include "postal/words/Lexicon.h"

namespace postwright::postal {
namespace {

constexpr size_t kMostUnitsKept = 100'000;
constexpr size_t kZipLength = 5;
constexpr std::string_view kNoCity = "NOT STATED";  // in the National Address Database

// The words of a field of any bytes; none where it has letters that no address is written in.
Words WordsOf(const std::string& text) {
  const auto folded = FoldToAscii(DecodeText(text));
  return folded ? SplitLine(*folded) : Words();
}

// What is not a unit by itself is the number of one: "4", "# HOUSE". None of signs alone.
Words StandardUnit(Words words) {
  if (const auto unit = ReadUnitLine(words)) {
    return *unit;
  }
  words.erase(words.begin(), std::find_if(words.begin(), words.end(),
                                          [](const std::string& word) { return word != "#"; }));
  if (words.empty()) {
    return words;
  }
  words.insert(words.begin(), "#");
  return ReadUnitLine(words).value_or(words);
}

// Returns what the boxes of a route or a post office are called together: "RR 3" of "RR 03".
std::string BoxName(Words words) {
  if (words.empty() || words.back() != "BOX") {
    words.emplace_back("BOX");
  }
  words.emplace_back("1");
  for (const auto read : {ReadPostOfficeBox, ReadRoute, ReadMilitary}) {
    const auto line = read(words);
    const auto box = line ? BoxAddress::Read(JoinWords(line->line)) : std::nullopt;
    if (box) {
      return box->name;
    }
  }
  return {};
}

}  // namespace

RowCity RowReader::ReadCity(const AddressRow& row) const {
  RowCity read;
  read.state = Lexicon::Get().State(JoinWords(WordsOf(row[Field::State])));
  const auto name = FoldToAscii(DecodeText(row[Field::City]));
  read.name = name && *name != kNoCity ? StandardCity(*name) : std::string();
  read.zip = row[Field::Zip].substr(0, kZipLength);
  if (read.zip.size() == kZipLength && AllDigits(read.zip)) {
    const ZipList::City* const city = zips_.FindZip(read.zip);
    read.state = city != nullptr ? city->state : read.state;
  } else {
    const std::string known = StandardCity(JoinWords(WordsOf(row[Field::City])));
    const ZipList::City* const city =
        known.empty() ? nullptr : zips_.FindCity(CityKey(known), read.state);
    read.zip = city != nullptr && city->zips.size() == 1 ? city->zips.front() : std::string();
  }
  return read;
}

std::optional<StreetName> RowReader::ReadStreet(const AddressRow& row,
                                                std::string_view state) const {
  if (row.postal.IsBox()) {
    StreetName box;
    box.name = row.postal.kind == PostalRecord::Kind::GeneralDelivery
                   ? "GENERAL DELIVERY"
                   : BoxName(WordsOf(row[Field::Street]));
    return box.name.empty() ? std::nullopt : std::optional(box);
  }
  Words line = {"1"};
  const Words street = WordsOf(row[Field::Street]);
  line.insert(line.end(), street.begin(), street.end());
  const auto parsed = postal::ReadStreet(std::move(line), state);
  if (!parsed || JoinWords(parsed->number) != "1" || !parsed->units.empty()) {
    return std::nullopt;
  }
  return StreetNameOf(*parsed, JoinWords(StandardUrbanization(WordsOf(row[Field::Urbanization]))));
}

std::string RowReader::ReadNumber(const std::string& text) const {
  constexpr size_t kMostDigits = 9;
  if (AllDigits(text) && text.size() <= kMostDigits && text[0] != '0') {
    return text;
  }
  Words line = WordsOf(text);
  if (line.empty() ||
      std::none_of(line[0].begin(), line[0].end(), [](char c) { return c >= '1' && c <= '9'; })) {
    return {};  // "0" is how sources write "none"
  }
  line.insert(line.end(), {"MAIN", "ST"});
  // A17 is a house number in Puerto Rico only; elsewhere no question can hold one.
  for (const std::string_view state : {"", "PR"}) {
    const auto parsed = postal::ReadStreet(line, state);
    if (parsed && parsed->name == Words{"MAIN"} && parsed->units.empty() &&
        parsed->predirectional.empty()) {
      return JoinWords(parsed->number);
    }
  }
  return {};
}

const std::string& RowReader::ReadUnit(const std::string& text) {
  static const std::string none;
  if (text.empty()) {
    return none;
  }
  if (const auto known = units_.find(text); known != units_.end()) {
    return known->second;
  }
  if (units_.size() >= kMostUnitsKept) {
    units_.clear();
  }
  return units_.emplace(text, JoinWords(StandardUnit(WordsOf(text)))).first->second;
}

}  // namespace postwright::postal
