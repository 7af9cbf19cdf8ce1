#include "common/WritingLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "common/FileDescriptor.h"

namespace postwright {

bool LockNewFile(int descriptor, const std::string& path) {
  flock(descriptor, LOCK_SH);  // waits for whoever is just removing it
  struct stat made {};
  struct stat there {};
  return fstat(descriptor, &made) == 0 && stat(path.c_str(), &there) == 0 &&
         made.st_dev == there.st_dev && made.st_ino == there.st_ino;
}

void RemoveUnlessLocked(const std::string& path) {
  const FileDescriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  if (file >= 0 && flock(file, LOCK_EX | LOCK_NB) == 0) {
    unlink(path.c_str());
  }
}

}  // namespace postwright
