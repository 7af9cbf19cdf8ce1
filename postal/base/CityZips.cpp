#include "postal/base/CityZips.h"

#include <algorithm>

#include "postal/places/CityName.h"

namespace postwright::postal {

std::vector<std::string> CityZips::OtherZipsOf(const PlacedLine& placed) {
  std::vector<std::string> zips = ZipsOf(placed.city, placed.state);
  std::erase(zips, placed.zip5);
  return zips;
}

std::vector<std::string> CityZips::ZipsOf(const std::string& city, const std::string& state) {
  const std::string key = CityKey(city);
  std::vector<std::string> zips = reader_.ZipsOfCity(key);
  std::erase_if(zips, [&](const std::string& zip) {
    const ZipList::City* const place = zips_.FindZip(zip);
    return place == nullptr || place->state != state;
  });
  if (const ZipList::City* const known = zips_.FindCity(key, state)) {
    zips.insert(zips.end(), known->zips.begin(), known->zips.end());
  }
  std::sort(zips.begin(), zips.end());
  zips.erase(std::unique(zips.begin(), zips.end()), zips.end());
  return zips;
}

bool CityZips::IsNameOfPlace(const PlacedLine& placed) {
  const ZipList::City* const usual = zips_.FindZip(placed.zip5);
  if (usual == nullptr || usual->name == placed.city) {
    return true;  // nearly always
  }
  const std::string key = CityKey(placed.city);
  return usual->key == key || !reader_.CityName(placed.zip5, key).empty();
}

}  // namespace postwright::postal
