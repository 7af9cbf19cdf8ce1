#ifndef POSTWRIGHT_APPS_OWNSERVICE_H_
#define POSTWRIGHT_APPS_OWNSERVICE_H_

#include <filesystem>
#include <string>
#include <vector>

namespace postwright {

// Where the programs find what they answer from by themselves, and which no service need be started
// for.

// Returns the address bases that are there: those of the user, NAME.base in
// $XDG_DATA_HOME/postwright (~/.local/share/postwright), in the order of their names, then those of
// the machine, in /var/lib/postwright. Throws std::filesystem::filesystem_error where one of these
// folders is there and cannot be read.
std::vector<std::filesystem::path> FindBases();

// Returns the folder that a user's bases are put into to be found: the user's own, or where there
// is no home the machine's.
std::filesystem::path BaseFolder();

// Has the fixes of this process answered by it, from those bases and the ZIP codes that come along.
// Returns in words what is known so: which streets, or none. Throws LocalServiceError and as
// FindBases() does where a file cannot be used: none of them is passed over.
std::string UseOwnService();

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_OWNSERVICE_H_
