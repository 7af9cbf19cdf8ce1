#ifndef POSTWRIGHT_POSTAL_BASE_BASEFILE_H_
#define POSTWRIGHT_POSTAL_BASE_BASEFILE_H_

#include <filesystem>

namespace postwright::postal::BaseFile {

// Says whether a file is to be taken for a base and not for a list of ZIP codes: it is an SQLite
// file of whatever content, or is called NAME.base, in any case of the letters, whatever it holds.
bool IsMeant(const std::filesystem::path& file);

// Throws ZipListError, which says what to do, unless `file` is a finished address base of this
// version. Looks at its first hundred bytes alone.
void Check(const std::filesystem::path& file);

}  // namespace postwright::postal::BaseFile

#endif  // POSTWRIGHT_POSTAL_BASE_BASEFILE_H_
