#include "postal/base/StreetIndex.h"

#include <algorithm>
#include <charconv>
#include <functional>

namespace postwright::postal {
namespace {

std::string KeyOf(std::string_view zip, const StreetName& street) {
  return std::string(zip) + '\n' + PackStreet(street);
}

// Reads what KeyOf has written.
KnownStreet ReadKey(std::string_view key, int64_t id) {
  return {id, UnpackStreet(key.substr(key.find('\n') + 1))};
}

uint32_t ZipNumber(std::string_view zip) {
  uint32_t number = 0;
  std::from_chars(zip.data(), zip.data() + zip.size(), number);
  return number;
}

}  // namespace

StreetIndex::StreetIndex(SqliteFile& file) {
  std::unordered_map<std::string, std::string> shortNames;  // many streets have one name
  SqliteStatement rows(file,
                       "SELECT id,zip,predirectional,name,suffix,postdirectional,urbanization "
                       "FROM street");
  while (rows.Step()) {
    const std::string zip = rows.Text(1);
    const StreetName street = {rows.Text(2), rows.Text(3), rows.Text(4), rows.Text(5),
                               rows.Text(6)};
    const auto added = streets_.emplace(KeyOf(zip, street), rows.Number(0)).first;
    std::string& shortName = shortNames[street.name];
    shortName = shortName.empty() ? ShortStreetName(street.name) : shortName;
    for (const std::string& writing : StreetLikeness::WritingsOf(street, shortName)) {
      writings_[std::hash<std::string>()(writing)].push_back({ZipNumber(zip), &*added});
    }
  }
  for (auto& [writing, places] : writings_) {
    std::sort(places.begin(), places.end(),
              [](const Place& a, const Place& b) { return a.zip < b.zip; });
    places.shrink_to_fit();
  }
}

std::optional<int64_t> StreetIndex::Find(std::string_view zip, const StreetName& street) const {
  const auto found = streets_.find(KeyOf(zip, street));
  return found == streets_.end() ? std::nullopt : std::optional(found->second);
}

StreetIndex::Written StreetIndex::FindWritten(const Words& writings, int64_t first) const {
  Written written;
  for (const std::string& writing : writings) {
    const auto found = writings_.find(std::hash<std::string>()(writing));
    if (found != writings_.end()) {
      written.places_.emplace_back(&found->second, first);
    }
  }
  return written;
}

std::vector<KnownStreet> StreetIndex::Written::In(std::string_view zip) const {
  std::vector<KnownStreet> streets;
  const uint32_t number = ZipNumber(zip);
  for (const auto& [places, first] : places_) {
    auto place = std::lower_bound(places->begin(), places->end(), number,
                                  [](const Place& a, uint32_t b) { return a.zip < b; });
    for (; place != places->end() && place->zip == number; ++place) {
      const std::string& key = place->street->first;
      const int64_t id = first + place->street->second;
      const auto isThis = [id](const KnownStreet& other) { return other.id == id; };
      if (key.starts_with(zip) && std::none_of(streets.begin(), streets.end(), isThis)) {
        streets.push_back(ReadKey(key, id));
      }
    }
  }
  return streets;
}

void StreetIndex::Written::Add(const Written& other) {
  places_.insert(places_.end(), other.places_.begin(), other.places_.end());
}

}  // namespace postwright::postal
