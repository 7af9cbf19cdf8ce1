#include "apps/postwright/stream/FilePlace.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>

#include "common/NewFileMode.h"

namespace postwright {

std::string BehindLinks(const std::string& name) {
  std::filesystem::path path = name;
  constexpr int kMostLinks = 40;  // as the system has it
  std::error_code error;
  for (int i = 0; i < kMostLinks && std::filesystem::is_symlink(path, error); ++i) {
    const std::filesystem::path target = std::filesystem::read_symlink(path, error);
    path = target.is_absolute() ? target : path.parent_path() / target;
  }
  return path.string();
}

void TakeOver(int descriptor, const std::string& path) {
  struct stat there {};
  if (stat(path.c_str(), &there) == -1) {
    fchmod(descriptor, NewFileMode());
    return;
  }
  mode_t mode = there.st_mode & 07777U;
  if (fchown(descriptor, there.st_uid, there.st_gid) == -1 &&
      fchown(descriptor, static_cast<uid_t>(-1), there.st_gid) == -1) {
    mode = (mode & 0707U) | ((mode & 7U) << 3U);  // our group is not the one that was let in
  }
  fchmod(descriptor, mode);
  constexpr const char* kAccess = "system.posix_acl_access";
  char access[1024];
  const ssize_t size = getxattr(path.c_str(), kAccess, access, sizeof access);
  if (size > 0) {
    fsetxattr(descriptor, kAccess, access, static_cast<std::size_t>(size), 0);
  }
}

bool PutInPlace(int descriptor, const std::string& from, const std::string& to) {
  if (fsync(descriptor) == -1 || rename(from.c_str(), to.c_str()) == -1) {
    return false;
  }
  // The name lasts only once the folder has been written too.
  const std::string folder = std::filesystem::path(to).parent_path().string();
  const int directory = open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY);
  if (directory != -1) {
    fsync(directory);
    close(directory);
  }
  return true;
}

}  // namespace postwright
