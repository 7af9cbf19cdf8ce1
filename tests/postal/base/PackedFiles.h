#ifndef POSTWRIGHT_TESTS_POSTAL_BASE_PACKEDFILES_H_
#define POSTWRIGHT_TESTS_POSTAL_BASE_PACKEDFILES_H_

#include <string>
#include <utility>
#include <vector>

#include "tests/support/TempFolder.h"

namespace postwright::postal {

// Returns the bytes packed by gzip.
std::string Gzipped(const std::string& bytes);

// Writes a ZIP archive of files with these names and contents. Returns its path.
std::string WriteZip(const TempFolder& folder, const std::string& name,
                     const std::vector<std::pair<std::string, std::string>>& members);

}  // namespace postwright::postal

#endif  // POSTWRIGHT_TESTS_POSTAL_BASE_PACKEDFILES_H_
