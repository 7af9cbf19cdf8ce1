#include "postal/base/StreetIndex.h"

#include <bit>
#include <functional>

namespace postwright::postal {
namespace {

// Each element ends with a line feed, so that no key begins with another.
std::string KeyOf(std::string_view zip, const StreetName& street) {
  std::string key(zip);
  for (const std::string* element : {&street.predirectional, &street.name, &street.suffix,
                                     &street.postdirectional, &street.urbanization}) {
    key += '\n';
    key += *element;
  }
  key += '\n';
  return key;
}

}  // namespace

StreetIndex::StreetIndex(SqliteFile& file) {
  std::vector<Entry> streets;
  SqliteStatement rows(file,
                       "SELECT id,zip,predirectional,name,suffix,postdirectional,urbanization "
                       "FROM street");
  while (rows.Step()) {
    streets.push_back({rows.Number(0), keys_.size()});
    keys_ +=
        KeyOf(rows.Text(1), {rows.Text(2), rows.Text(3), rows.Text(4), rows.Text(5), rows.Text(6)});
  }
  keys_.shrink_to_fit();
  slots_.resize(std::bit_ceil(2 * streets.size() + 1));
  const std::string_view keys(keys_);
  for (size_t i = 0; i < streets.size(); ++i) {
    const size_t end = i + 1 < streets.size() ? streets[i + 1].key : keys.size();
    slots_[SlotOf(keys.substr(streets[i].key, end - streets[i].key))] = streets[i];
  }
}

std::optional<int64_t> StreetIndex::Find(std::string_view zip, const StreetName& street) const {
  const Entry& found = slots_[SlotOf(KeyOf(zip, street))];
  return found.street == kNone ? std::nullopt : std::optional(found.street);
}

// Returns the slot that has the key, or the empty one where it would be.
size_t StreetIndex::SlotOf(std::string_view key) const {
  const size_t last = slots_.size() - 1;  // a power of two less one
  size_t slot = std::hash<std::string_view>()(key) & last;
  while (slots_[slot].street != kNone && keys_.compare(slots_[slot].key, key.size(), key) != 0) {
    slot = (slot + 1) & last;
  }
  return slot;
}

}  // namespace postwright::postal
