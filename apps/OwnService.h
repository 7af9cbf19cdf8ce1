#ifndef POSTWRIGHT_APPS_OWNSERVICE_H_
#define POSTWRIGHT_APPS_OWNSERVICE_H_

#include <string>

#include "common/BaseFolders.h"

namespace postwright {

// Where the programs find what they answer from by themselves, and which no service need be started
// for.

// Has the fixes of this process answered by it, from those bases and the ZIP codes that come with
// it. Returns in words what is known so: which streets, or none. Throws LocalServiceError and as
// FindBases() does where a file cannot be used: none of them is passed over.
std::string UseOwnService();

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_OWNSERVICE_H_
