#ifndef POSTWRIGHT_APPS_BASE_IMPORTCOMMAND_H_
#define POSTWRIGHT_APPS_BASE_IMPORTCOMMAND_H_

#include <optional>
#include <string>
#include <vector>

#include "postal/import/ColumnMap.h"

namespace postwright::postal {

struct ImportOptions {
  std::string base;
  std::vector<std::string> files;
  std::string source;
  std::string licence;
  std::string attribution;
  std::string map;
  bool partial = false;
  bool restart = false;
  bool quiet = false;
};

// `postwright-base import`: takes the files into the base, shows on standard error how far it is
// and which rows are left out, and returns the exit status. SIGINT and SIGTERM stop it between two
// rows; what was read is kept for the same command.
int RunImport(const ImportOptions& options);

}  // namespace postwright::postal

#endif  // POSTWRIGHT_APPS_BASE_IMPORTCOMMAND_H_
