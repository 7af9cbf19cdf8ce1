#ifndef POSTWRIGHT_APPS_BASE_IMPORTRUN_H_
#define POSTWRIGHT_APPS_BASE_IMPORTRUN_H_

#include <string>

#include "apps/base/ProgressLine.h"
#include "postal/import/Importer.h"

namespace postwright::postal {

// Runs an import into `base` to its end or to a signal, shows how far it is, names the first rows
// that are left out, and says at the end what became of them. Returns the status to exit with.
// Throws as Importer does.
int RunImporter(Importer& importer, const std::string& base, ProgressLine& progress);

}  // namespace postwright::postal

#endif  // POSTWRIGHT_APPS_BASE_IMPORTRUN_H_
