#include "postal/base/StreetCache.h"

#include <utility>

namespace postwright::postal {

StreetCache::Streets StreetCache::Find(const std::string& zip) {
  const std::lock_guard lock(mutex_);
  const auto place = places_.find(zip);
  if (place == places_.end()) {
    return nullptr;
  }
  entries_.splice(entries_.begin(), entries_, place->second);
  return place->second->streets;
}

StreetCache::Streets StreetCache::Keep(const std::string& zip,
                                       std::vector<ComparableStreet> streets) {
  auto kept = std::make_shared<const std::vector<ComparableStreet>>(std::move(streets));
  const std::lock_guard lock(mutex_);
  if (places_.contains(zip)) {
    return kept;  // another thread has read them meanwhile
  }
  entries_.push_front({zip, kept});
  places_.emplace(zip, entries_.begin());
  count_ += kept->size();
  while (count_ > most_ && entries_.size() > 1) {
    count_ -= entries_.back().streets->size();
    places_.erase(entries_.back().zip);
    entries_.pop_back();
  }
  return kept;
}

}  // namespace postwright::postal
