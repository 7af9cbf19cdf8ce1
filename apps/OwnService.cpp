#include "apps/OwnService.h"

#include <postwright/LocalService.h>

#include <filesystem>
#include <vector>

#include "apps/DefaultZips.h"
#include "common/BaseFolders.h"

namespace postwright {

namespace {

std::string InWords(const std::vector<std::filesystem::path>& bases) {
  if (bases.empty()) {
    return "ZIP codes only: streets are not checked. 'postwright-base fetch texas' brings the "
           "streets";
  }
  std::string names;
  for (const std::filesystem::path& base : bases) {
    names += (names.empty() ? "" : ", ") + base.string();
  }
  return "streets are those of " + names;
}

}  // namespace

std::string UseOwnService() {
  const std::vector<std::filesystem::path> bases = FindBases();
  std::vector<std::filesystem::path> files = {DefaultZips()};
  files.insert(files.end(), bases.begin(), bases.end());
  UseLocalService(files);
  return InWords(bases);
}

}  // namespace postwright
