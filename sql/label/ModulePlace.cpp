#include "sql/label/ModulePlace.h"

#include <dlfcn.h>

namespace postwright::sql {

std::filesystem::path DefaultZips() {
  static const char inThisModule = 0;
  Dl_info module{};
  dladdr(&inThisModule, &module);
  const std::filesystem::path path = std::filesystem::canonical(module.dli_fname);
  return (path.parent_path() / POSTWRIGHT_SHARE_FROM_MODULE / "us-zips.tsv").lexically_normal();
}

}  // namespace postwright::sql
