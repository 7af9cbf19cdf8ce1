#ifndef POSTWRIGHT_APPS_BASE_INFOCOMMAND_H_
#define POSTWRIGHT_APPS_BASE_INFOCOMMAND_H_

#include <string>

namespace postwright::postal {

// `postwright-base info`: writes to standard output what a base holds, and of each source what must
// be said of it. Returns the exit status.
int RunInfo(const std::string& base);

}  // namespace postwright::postal

#endif  // POSTWRIGHT_APPS_BASE_INFOCOMMAND_H_
