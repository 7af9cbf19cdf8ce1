#include "postal/base/StreetIndex.h"

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
  SqliteStatement rows(file,
                       "SELECT id,zip,predirectional,name,suffix,postdirectional,urbanization,key "
                       "FROM street");
  while (rows.Step()) {
    streets_.emplace(
        KeyOf(rows.Text(1), {rows.Text(2), rows.Text(3), rows.Text(4), rows.Text(5), rows.Text(6)}),
        rows.Number(0));
    keys_.insert(rows.Text(1) + rows.Text(7));
  }
}

std::optional<int64_t> StreetIndex::Find(std::string_view zip, const StreetName& street) const {
  const auto found = streets_.find(KeyOf(zip, street));
  return found == streets_.end() ? std::nullopt : std::optional(found->second);
}

bool StreetIndex::HasKey(std::string_view zip, std::string_view key) const {
  return keys_.contains(std::string(zip).append(key));
}

}  // namespace postwright::postal
