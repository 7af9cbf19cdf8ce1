#include "postal/places/ZipList.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <limits>

#include "common/AsciiText.h"
#include "common/Encoding.h"
#include "postal/places/CityName.h"
#include "postal/words/Lexicon.h"

namespace postwright::postal {
namespace {

constexpr size_t kZipLength = 5;

uint32_t ZipNumber(std::string_view zip5) {
  uint32_t number = 0;
  std::from_chars(zip5.data(), zip5.data() + zip5.size(), number);
  return number;
}

bool IsZip(std::string_view text) {
  return text.size() == kZipLength && AllDigits(text);
}

}  // namespace

ZipList::ZipList() : cityOfZip_(kZips, nullptr) {}

void ZipList::Load(const std::filesystem::path& file) {
  std::ifstream input(file, std::ios::binary);
  if (!input || std::filesystem::is_directory(file)) {
    throw ZipListError(file.string() + ": cannot be read");
  }
  Read(input, file.string());
}

void ZipList::Read(std::istream& rows, const std::string& name) {
  std::string line;
  for (size_t number = 1; std::getline(rows, line); ++number) {
    if (line.ends_with('\r')) {
      line.pop_back();
    }
    try {
      if (!line.empty()) {
        AddRow(line);
      }
    } catch (const ZipListError& error) {
      throw ZipListError(name + ": line " + std::to_string(number) + ": " + error.what());
    }
  }
  if (rows.bad()) {
    throw ZipListError(name + ": cannot be read to its end");
  }
}

void ZipList::AddRow(std::string_view line) {
  const size_t first = line.find('\t');
  const size_t second = first == std::string_view::npos ? first : line.find('\t', first + 1);
  if (second == std::string_view::npos) {
    throw ZipListError("is not ZIP, city and state separated by tabs");
  }
  const std::string_view zip = line.substr(0, first);
  const std::string_view state = line.substr(second + 1);
  if (!IsZip(zip)) {
    throw ZipListError("does not begin with a ZIP code of five digits");
  }
  if (state.size() != 2 || Lexicon::Get().State(state).empty()) {
    throw ZipListError("does not end in a state's two-letter code");
  }
  const auto folded = FoldToAscii(DecodeText(line.substr(first + 1, second - first - 1)));
  const std::string name = folded ? StandardCity(*folded) : std::string();
  if (name.empty()) {
    throw ZipListError("names no city that can be written in the letters A to Z");
  }
  City& city = CityOf(name, state);
  const uint32_t number = ZipNumber(zip);
  Forget(number);
  cityOfZip_[number] = &city;
  city.zips.emplace_back(zip);
  ++zipCount_;
}

ZipList::City& ZipList::CityOf(std::string_view name, std::string_view state) {
  const std::string key = CityKey(name);
  std::vector<City*>& namesakes = citiesByKey_[key];
  const auto known = std::find_if(namesakes.begin(), namesakes.end(),
                                  [&](const City* city) { return city->state == state; });
  if (known != namesakes.end()) {
    return **known;
  }
  City& city = cities_.emplace_back(City{std::string(name), key, std::string(state), {}});
  namesakes.push_back(&city);
  citiesByState_[city.state].push_back(&city);
  return city;
}

void ZipList::Forget(uint32_t zip) {
  City* const city = cityOfZip_[zip];
  if (city == nullptr) {
    return;
  }
  std::erase_if(city->zips, [&](const std::string& text) { return ZipNumber(text) == zip; });
  cityOfZip_[zip] = nullptr;
  --zipCount_;
}

const ZipList::City* ZipList::FindZip(std::string_view zip5) const {
  return IsZip(zip5) ? cityOfZip_[ZipNumber(zip5)] : nullptr;
}

const ZipList::City* ZipList::FindCity(const std::string& key, std::string_view state) const {
  const auto namesakes = citiesByKey_.find(key);
  if (namesakes == citiesByKey_.end()) {
    return nullptr;
  }
  for (const City* city : namesakes->second) {
    if (city->state == state && !city->zips.empty()) {
      return city;
    }
  }
  return nullptr;
}

const ZipList::City* ZipList::FindNearCity(const std::string& key, std::string_view state) const {
  const auto inState = citiesByState_.find(std::string(state));
  if (inState == citiesByState_.end()) {
    return nullptr;
  }
  const City* nearest = nullptr;
  size_t least = std::numeric_limits<size_t>::max();
  for (const City* city : inState->second) {
    const auto distance = city->zips.empty() ? std::nullopt : NearDistance(key, city->key);
    if (distance && *distance <= least) {
      nearest = *distance < least ? city : nullptr;
      least = *distance;
    }
  }
  return nearest;
}

bool ZipList::IsCityAnywhere(const std::string& key) const {
  const auto namesakes = citiesByKey_.find(key);
  return namesakes != citiesByKey_.end() &&
         std::any_of(namesakes->second.begin(), namesakes->second.end(),
                     [](const City* city) { return !city->zips.empty(); });
}

}  // namespace postwright::postal
