#include "common/BaseFolders.h"

#include <algorithm>
#include <cstdlib>

namespace postwright {

namespace {

std::filesystem::path OfEnvironment(const char* variable) {
  const char* const value = std::getenv(variable);
  return value == nullptr ? "" : value;
}

// Empty where the user has no home.
std::filesystem::path UserFolder() {
  const std::filesystem::path data = OfEnvironment("XDG_DATA_HOME");
  if (data.is_absolute()) {
    return data / "postwright";
  }
  const std::filesystem::path home = OfEnvironment("HOME");
  return home.is_absolute() ? home / ".local/share/postwright" : std::filesystem::path();
}

}  // namespace

std::filesystem::path BaseFolder() {
  const std::filesystem::path user = UserFolder();
  return user.empty() ? std::filesystem::path(kMachineBases) : user;
}

std::vector<std::filesystem::path> FilesIn(const std::filesystem::path& folder,
                                           const char* ending) {
  std::vector<std::filesystem::path> files;
  if (std::filesystem::exists(folder)) {
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
      if (entry.path().extension() == ending) {
        files.push_back(entry.path());
      }
    }
  }
  std::sort(files.begin(), files.end());
  return files;
}

std::vector<std::filesystem::path> FindBases() {
  std::vector<std::filesystem::path> bases = FilesIn(UserFolder(), ".base");
  const std::vector<std::filesystem::path> ofMachine = FilesIn(kMachineBases, ".base");
  bases.insert(bases.end(), ofMachine.begin(), ofMachine.end());
  return bases;
}

}  // namespace postwright
