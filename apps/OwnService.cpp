#include "apps/OwnService.h"

#include <postwright/LocalService.h>

#include <algorithm>
#include <cstdlib>

#include "apps/DefaultZips.h"

namespace postwright {

namespace {

constexpr const char* kMachineFolder = "/var/lib/postwright";

std::filesystem::path OfEnvironment(const char* variable) {
  const char* const value = std::getenv(variable);
  return value == nullptr ? "" : value;
}

// Empty where the user has no home. What is not absolute does not count: XDG Base Directory
// Specification.
std::filesystem::path UserFolder() {
  const std::filesystem::path data = OfEnvironment("XDG_DATA_HOME");
  if (data.is_absolute()) {
    return data / "postwright";
  }
  const std::filesystem::path home = OfEnvironment("HOME");
  return home.is_absolute() ? home / ".local/share/postwright" : std::filesystem::path();
}

std::vector<std::filesystem::path> BasesIn(const std::filesystem::path& folder) {
  std::vector<std::filesystem::path> bases;
  if (std::filesystem::exists(folder)) {
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
      if (entry.path().extension() == ".base") {
        bases.push_back(entry.path());
      }
    }
  }
  std::sort(bases.begin(), bases.end());
  return bases;
}

std::string InWords(const std::vector<std::filesystem::path>& bases) {
  if (bases.empty()) {
    return "ZIP codes only: streets are not checked. 'postwright-base import' brings them, into a "
           ".base file in " +
           BaseFolder().string();
  }
  std::string names;
  for (const std::filesystem::path& base : bases) {
    names += (names.empty() ? "" : ", ") + base.string();
  }
  return "streets are those of " + names;
}

}  // namespace

std::vector<std::filesystem::path> FindBases() {
  std::vector<std::filesystem::path> bases = BasesIn(UserFolder());
  const std::vector<std::filesystem::path> ofMachine = BasesIn(kMachineFolder);
  bases.insert(bases.end(), ofMachine.begin(), ofMachine.end());
  return bases;
}

std::filesystem::path BaseFolder() {
  const std::filesystem::path user = UserFolder();
  return user.empty() ? std::filesystem::path(kMachineFolder) : user;
}

std::string UseOwnService() {
  const std::vector<std::filesystem::path> bases = FindBases();
  std::vector<std::filesystem::path> files = {DefaultZips()};
  files.insert(files.end(), bases.begin(), bases.end());
  UseLocalService(files);
  return InWords(bases);
}

}  // namespace postwright
