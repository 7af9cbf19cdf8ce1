#ifndef POSTWRIGHT_POSTAL_BASE_STREETCACHE_H_
#define POSTWRIGHT_POSTAL_BASE_STREETCACHE_H_

#include <list>
#include <memory>
#include <mutex>
#include <string>
#include <unordered_map>
#include <vector>

#include "postal/base/StreetLikeness.h"

namespace postwright::postal {

// The streets of the ZIP codes that were looked through last, in memory: a question about a street
// that is not there as it was written is compared with all of them, and the addresses of a list lie
// close together. Any thread may call.
class StreetCache {
 public:
  using Streets = std::shared_ptr<const std::vector<ComparableStreet>>;

  // Some 400 bytes each. A thousand ZIP codes of usual size.
  static constexpr size_t kMostStreets = 150'000;

  // Keeps up to `most` streets, the ZIP code that was just added always.
  explicit StreetCache(size_t most = kMostStreets) : most_(most) {}

  // Returns the streets of the ZIP code; null where they are not kept.
  Streets Find(const std::string& zip);

  // Keeps them in the place of those that were not asked for the longest, and returns them.
  Streets Keep(const std::string& zip, std::vector<ComparableStreet> streets);

 private:
  struct Entry {
    std::string zip;
    Streets streets;
  };

  std::mutex mutex_;
  const size_t most_;
  size_t count_ = 0;          // of streets
  std::list<Entry> entries_;  // asked for last first
  std::unordered_map<std::string, std::list<Entry>::iterator> places_;
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_BASE_STREETCACHE_H_
