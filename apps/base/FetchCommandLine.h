#ifndef POSTWRIGHT_APPS_BASE_FETCHCOMMANDLINE_H_
#define POSTWRIGHT_APPS_BASE_FETCHCOMMANDLINE_H_

#include "apps/base/Command.h"
#include "apps/base/FetchCommand.h"

namespace postwright::postal {

// The options of `fetch`, `update` and `list`. Borrow what they put the options in.
Command AddFetch(CLI::App& app, FetchOptions& options);
Command AddUpdate(CLI::App& app, UpdateOptions& options);
Command AddList(CLI::App& app);

}  // namespace postwright::postal

#endif  // POSTWRIGHT_APPS_BASE_FETCHCOMMANDLINE_H_
