#ifndef POSTWRIGHT_POSTAL_BASE_STREETINDEX_H_
#define POSTWRIGHT_POSTAL_BASE_STREETINDEX_H_

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "postal/base/StreetLikeness.h"
#include "postal/base/StreetName.h"
#include "postal/store/Sqlite.h"

namespace postwright::postal {

// The streets of a base in memory, found by their whole name, or by another writing of it, in a
// fraction of the steps that the file's own index takes. Needs some 200 bytes a street. Constant
// once made: any thread may look.
class StreetIndex {
 public:
  // Reads all streets. Throws StoreError where the file is damaged.
  explicit StreetIndex(SqliteFile& file);

  // Returns the row of the street of exactly that name in the ZIP code; nullopt where there is
  // none.
  std::optional<int64_t> Find(std::string_view zip, const StreetName& street) const;

  // The streets that have one of several writings, in any ZIP code. Borrows the index. `first` is
  // added to their rows.
  class Written;
  Written FindWritten(const Words& writings, int64_t first) const;

 private:
  using Streets = std::unordered_map<std::string, int64_t>;
  struct Place {
    uint32_t zip;
    const Streets::value_type* street;
  };
  using Places = std::vector<Place>;  // by their ZIP codes

  Streets streets_;                              // by ZIP code and all their elements
  std::unordered_map<size_t, Places> writings_;  // by their hashes
};

class StreetIndex::Written {
 public:
  // Returns those of a ZIP code, and hardly ever one more.
  std::vector<KnownStreet> In(std::string_view zip) const;

  // Takes in those of another base.
  void Add(const Written& other);

 private:
  friend class StreetIndex;

  std::vector<std::pair<const Places*, int64_t>> places_;  // and what is added to their rows
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_BASE_STREETINDEX_H_
