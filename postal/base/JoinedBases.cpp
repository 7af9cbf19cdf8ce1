#include "postal/base/JoinedBases.h"

#include <algorithm>
#include <system_error>

#include "postal/places/CityName.h"

namespace postwright::postal {
namespace {

const std::vector<std::string>& ListOf(
    const std::unordered_map<std::string, std::vector<std::string>>& lists,
    const std::string& name) {
  static const std::vector<std::string> kNothing;
  const auto found = lists.find(name);
  return found == lists.end() ? kNothing : found->second;
}

// Of what cannot be read opening says so.
uintmax_t SizeOf(const std::vector<std::filesystem::path>& files) {
  uintmax_t size = 0;
  for (const std::filesystem::path& file : files) {
    std::error_code failure;
    const uintmax_t bytes = std::filesystem::file_size(file, failure);
    size += failure ? 0 : bytes;
  }
  return size;
}

void Add(std::vector<std::string>& list, const std::string& text) {
  if (std::find(list.begin(), list.end(), text) == list.end()) {
    list.push_back(text);
  }
}

}  // namespace

JoinedBases::JoinedBases(const std::vector<std::filesystem::path>& files, size_t mostInMemory,
                         size_t mostStreets)
    : isInMemory_(SizeOf(files) <= mostInMemory) {
  const auto kind = isInMemory_ ? FileImage::Kind::Copied : FileImage::Kind::Mapped;
  const auto streets = std::make_shared<StreetCache>(mostStreets);
  for (const std::filesystem::path& file : files) {
    bases_.emplace_back(file, kind, static_cast<int64_t>(bases_.size()), streets);
  }
  for (size_t place = 0; place < bases_.size(); ++place) {
    if (bases_[place].Borrow()->Known().hasPostal) {
      postal_.push_back(place);
    }
  }
  for (size_t place = 0; bases_.size() > 1 && place < bases_.size(); ++place) {
    Join(place);
  }
}

void JoinedBases::Join(size_t place) {
  const AddressBase::Lease reader = bases_[place].Borrow();
  for (const auto& [zip, whole] : reader->Known().zips) {
    places_.emplace(zip, place);
  }
  preferredCities_.insert(reader->Known().preferredCities.begin(),
                          reader->Known().preferredCities.end());
  for (const auto& [zip, names] : reader->Known().cityNames) {
    for (const std::string& name : names) {
      Add(cityNames_[zip], name);
      Add(zipsOfCity_[CityKey(name)], zip);
    }
  }
}

size_t JoinedBases::PlaceOf(const std::string& zip) const {
  const auto found = places_.find(zip);
  return found == places_.end() ? kNone : found->second;
}

std::string JoinedBases::PreferredCity(const std::string& zip, const std::string& key) const {
  const auto found = preferredCities_.find(zip + ' ' + key);
  return found == preferredCities_.end() ? std::string() : found->second;
}

const std::vector<std::string>& JoinedBases::CityNames(const std::string& zip) const {
  return ListOf(cityNames_, zip);
}

const std::vector<std::string>& JoinedBases::ZipsOfCity(const std::string& key) const {
  return ListOf(zipsOfCity_, key);
}

}  // namespace postwright::postal
