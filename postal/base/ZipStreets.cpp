#include "postal/base/ZipStreets.h"

#include <functional>
#include <utility>

namespace postwright::postal {
namespace {

uint32_t HashOf(const std::string& key) {
  return static_cast<uint32_t>(std::hash<std::string>()(key));
}

}  // namespace

ZipStreets::ZipStreets(std::vector<KnownStreet> streets) {
  streets_.reserve(streets.size());
  for (KnownStreet& street : streets) {
    const ComparableStreet there(std::move(street));
    streets_.push_back(
        {there.traits, there.known.id, HashOf(there.key), static_cast<uint32_t>(texts_.size())});
    texts_ += PackStreet(there.known.street);
  }
  texts_.shrink_to_fit();
}

std::vector<ComparableStreet> ZipStreets::Near(const StreetLikeness& asked,
                                               const std::string& key) const {
  std::vector<ComparableStreet> near;
  const uint32_t hash = HashOf(key);
  for (const Packed& street : streets_) {
    if (street.key == hash || asked.MayBeLike(street.traits)) {
      near.emplace_back(
          KnownStreet{street.id, UnpackStreet(std::string_view(texts_).substr(street.text))});
    }
  }
  return near;
}

}  // namespace postwright::postal
