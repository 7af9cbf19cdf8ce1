#ifndef POSTWRIGHT_APPS_DEFAULTZIPS_H_
#define POSTWRIGHT_APPS_DEFAULTZIPS_H_

#include <string>

namespace postwright {

// Returns the ZIP codes that come with it, seen from where the program is.
std::string DefaultZips();

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_DEFAULTZIPS_H_
