#ifndef POSTWRIGHT_SQL_LABEL_MODULEPLACE_H_
#define POSTWRIGHT_SQL_LABEL_MODULEPLACE_H_

#include <filesystem>

namespace postwright::sql {

// Returns the file of ZIP codes that is installed with this module, found relative to it.
std::filesystem::path DefaultZips();

}  // namespace postwright::sql

#endif  // POSTWRIGHT_SQL_LABEL_MODULEPLACE_H_
