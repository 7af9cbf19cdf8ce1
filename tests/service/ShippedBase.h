#ifndef POSTWRIGHT_TESTS_SERVICE_SHIPPEDBASE_H_
#define POSTWRIGHT_TESTS_SERVICE_SHIPPEDBASE_H_

#include "service/address/ZipBase.h"

namespace postwright::service {

// The base that comes with the service, read once.
inline const ZipBase& Base() {
  static const ZipBase* const base = [] {
    auto* loaded = new ZipBase;
    loaded->Load(POSTWRIGHT_SOURCE_DIR "/data/us-zips.tsv");
    return loaded;
  }();
  return *base;
}

}  // namespace postwright::service

#endif  // POSTWRIGHT_TESTS_SERVICE_SHIPPEDBASE_H_
