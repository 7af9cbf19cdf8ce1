#ifndef POSTWRIGHT_POSTAL_BASE_ZIPSTREETS_H_
#define POSTWRIGHT_POSTAL_BASE_ZIPSTREETS_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "postal/base/StreetLikeness.h"
#include "postal/base/StreetName.h"

namespace postwright::postal {

// The streets of a ZIP code, packed into some 70 bytes each, so that those of the whole country fit
// into memory. Constant once made: any thread may look.
class ZipStreets {
 public:
  ZipStreets() = default;
  explicit ZipStreets(std::vector<KnownStreet> streets);

  size_t Size() const { return streets_.size(); }

  // Returns those to which `asked` may be like and those whose names have the key (StreetKey), in
  // their order; hardly ever another.
  std::vector<ComparableStreet> Near(const StreetLikeness& asked, const std::string& key) const;

 private:
  struct Packed {
    StreetTraits traits;
    int64_t id;
    uint32_t key;   // the hash of its name's key
    uint32_t text;  // where its elements begin in `texts_`
  };

  std::vector<Packed> streets_;
  std::string texts_;
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_BASE_ZIPSTREETS_H_
