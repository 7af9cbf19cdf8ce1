#include "apps/DefaultZips.h"

#include <filesystem>

namespace postwright {

std::string DefaultZips() {
  const auto program = std::filesystem::read_symlink("/proc/self/exe");
  return (program.parent_path() / POSTWRIGHT_SHARE_FROM_BIN / "us-zips.tsv")
      .lexically_normal()
      .string();
}

}  // namespace postwright
