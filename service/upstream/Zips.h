#ifndef POSTWRIGHT_SERVICE_UPSTREAM_ZIPS_H_
#define POSTWRIGHT_SERVICE_UPSTREAM_ZIPS_H_

#include <functional>
#include <memory>

#include "postal/places/ZipList.h"

namespace postwright::service {

// Gives the ZIP codes as they are known at the moment: the base may be read again at any time. What
// was given stays as it is while it is held. Never null; from any thread.
using Zips = std::function<std::shared_ptr<const postal::ZipList>()>;

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_UPSTREAM_ZIPS_H_
