#ifndef POSTWRIGHT_COMMON_BASEFOLDERS_H_
#define POSTWRIGHT_COMMON_BASEFOLDERS_H_

#include <filesystem>
#include <vector>

namespace postwright {

// Where the programs find the address bases: NAME.base in the folder of the user, then in that of
// the machine.
inline constexpr const char* kMachineBases = "/var/lib/postwright";

// Returns the folder that a user's bases are put into to be found: $XDG_DATA_HOME/postwright, by
// default ~/.local/share/postwright, or where there is no home the machine's. What is not absolute
// does not count: XDG Base Directory Specification.
std::filesystem::path BaseFolder();

// The files of a folder whose names end in `ending`, in the order of their names; none where there
// is no folder. Throws std::filesystem::filesystem_error for one that cannot be read.
std::vector<std::filesystem::path> FilesIn(const std::filesystem::path& folder, const char* ending);

// Returns the bases of the user, then those of the machine, each in the order of their names.
// Throws as FilesIn() does.
std::vector<std::filesystem::path> FindBases();

}  // namespace postwright

#endif  // POSTWRIGHT_COMMON_BASEFOLDERS_H_
