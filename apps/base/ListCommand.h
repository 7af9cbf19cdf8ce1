#ifndef POSTWRIGHT_APPS_BASE_LISTCOMMAND_H_
#define POSTWRIGHT_APPS_BASE_LISTCOMMAND_H_

namespace postwright::postal {

// Runs `postwright-base list`: the bases that the programs find, each with its sources, how old
// they are, and what has to be said of them. Returns the status to exit with.
int RunList();

}  // namespace postwright::postal

#endif  // POSTWRIGHT_APPS_BASE_LISTCOMMAND_H_
