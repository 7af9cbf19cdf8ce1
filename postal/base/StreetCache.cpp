#include "postal/base/StreetCache.h"

#include <utility>

namespace postwright::postal {

StreetCache::Streets StreetCache::Find(const std::string& zip) {
  const std::lock_guard lock(mutex_);
  const auto found = entries_.find(zip);
  if (found == entries_.end()) {
    return nullptr;
  }
  found->second.isAsked = true;
  return found->second.streets;
}

StreetCache::Streets StreetCache::Keep(const std::string& zip, ZipStreets streets) {
  auto kept = std::make_shared<const ZipStreets>(std::move(streets));
  const std::lock_guard lock(mutex_);
  Entry& entry = entries_[zip];
  if (entry.streets) {
    return entry.streets;  // another thread has read them meanwhile
  }
  entry = {kept};
  count_ += kept->Size();
  MakeRoom();
  kept_.push_back(zip);
  return kept;
}

// Whatever was asked for since its last turn gets another one.
void StreetCache::MakeRoom() {
  while (count_ > most_ && !kept_.empty()) {
    std::string zip = std::move(kept_.front());
    kept_.pop_front();
    Entry& entry = entries_[zip];
    if (entry.isAsked) {
      entry.isAsked = false;
      kept_.push_back(std::move(zip));
    } else {
      count_ -= entry.streets->Size();
      entries_.erase(zip);
    }
  }
}

}  // namespace postwright::postal
