#include "tests/support/TempFolder.h"

#include <sys/stat.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <system_error>

namespace postwright {

TempFolder::TempFolder()
    : path_(std::filesystem::temp_directory_path() / "postwright-test-XXXXXX") {
  if (mkdtemp(path_.data()) == nullptr) {
    throw std::system_error(errno, std::generic_category(), path_);
  }
}

TempFolder::~TempFolder() {
  std::error_code none;
  std::filesystem::remove_all(path_, none);
}

std::string TempFolder::Write(const std::string& name, const std::string& content,
                              mode_t mode) const {
  const std::string file = File(name);
  std::filesystem::remove(file);
  std::ofstream(file) << content;
  chmod(file.c_str(), mode);
  return file;
}

}  // namespace postwright
