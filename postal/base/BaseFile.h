#ifndef POSTWRIGHT_POSTAL_BASE_BASEFILE_H_
#define POSTWRIGHT_POSTAL_BASE_BASEFILE_H_

#include <filesystem>

namespace postwright::postal::BaseFile {

// Says whether a file is an SQLite file, of whatever content. False for what cannot be read.
bool IsSqlite(const std::filesystem::path& file);

// Throws ZipListError, which says what to do, unless `file` is a finished address base of this
// version. Looks at its first hundred bytes alone.
void Check(const std::filesystem::path& file);

}  // namespace postwright::postal::BaseFile

#endif  // POSTWRIGHT_POSTAL_BASE_BASEFILE_H_
