#ifndef POSTWRIGHT_TESTS_POSTAL_SHIPPEDZIPS_H_
#define POSTWRIGHT_TESTS_POSTAL_SHIPPEDZIPS_H_

#include "postal/places/ZipList.h"

namespace postwright::postal {

// The ZIP list that comes with the service, read once.
inline const ZipList& ShippedZips() {
  static const ZipList* const zips = [] {
    auto* loaded = new ZipList;
    loaded->Load(POSTWRIGHT_SOURCE_DIR "/data/us-zips.tsv");
    return loaded;
  }();
  return *zips;
}

}  // namespace postwright::postal

#endif  // POSTWRIGHT_TESTS_POSTAL_SHIPPEDZIPS_H_
