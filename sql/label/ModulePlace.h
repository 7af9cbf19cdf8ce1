#ifndef POSTWRIGHT_SQL_LABEL_MODULEPLACE_H_
#define POSTWRIGHT_SQL_LABEL_MODULEPLACE_H_

#include <filesystem>

namespace postwright::sql {

// Returns the ZIP codes that come with it, seen from where this module is.
std::filesystem::path DefaultZips();

}  // namespace postwright::sql

#endif  // POSTWRIGHT_SQL_LABEL_MODULEPLACE_H_
