#ifndef POSTWRIGHT_POSTAL_BASE_STREETCACHE_H_
#define POSTWRIGHT_POSTAL_BASE_STREETCACHE_H_

#include <cstddef>
#include <deque>
#include <memory>
#include <mutex>
#include <string>
#include <unordered_map>

#include "postal/base/ZipStreets.h"

namespace postwright::postal {

// The streets of the ZIP codes that were looked through lately, in memory: a question about a
// street that is not there as it was written is compared with all of them. The addresses of a list
// lie close together; a service is asked for all. Any thread may call.
class StreetCache {
 public:
  using Streets = std::shared_ptr<const ZipStreets>;

  // Some 70 bytes each. Six thousand ZIP codes of usual size, or more than the country has.
  static constexpr size_t kMostStreets = 900'000;
  static constexpr size_t kCountry = 10'000'000;

  // Keeps up to `most` streets, the ZIP code that was just added always.
  explicit StreetCache(size_t most = kMostStreets) : most_(most) {}

  // Returns the streets of the ZIP code; null where they are not kept.
  Streets Find(const std::string& zip);

  // Keeps them, in the place of some that were not asked for lately where there is no room, and
  // returns them.
  Streets Keep(const std::string& zip, ZipStreets streets);

 private:
  struct Entry {
    Streets streets;
    bool isAsked = false;  // again, since it was kept or last looked at for its room
  };

  void MakeRoom();

  std::mutex mutex_;
  const size_t most_;
  size_t count_ = 0;  // of streets that are kept
  std::unordered_map<std::string, Entry> entries_;
  std::deque<std::string> kept_;  // the next to go first
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_BASE_STREETCACHE_H_
