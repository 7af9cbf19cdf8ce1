#include "apps/postwright/stream/Output.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "apps/TerminalText.h"
#include "apps/postwright/stream/EndingSignals.h"
#include "apps/postwright/stream/Failure.h"
#include "common/NewFileMode.h"

namespace postwright {

namespace {

constexpr std::size_t kBlock = std::size_t{64} << 10U;
// The unfinished file, for the signal handler; null while there is none.
const char* volatile gUnfinished = nullptr;

void RemoveUnfinished() {
  if (gUnfinished != nullptr) {
    unlink(gUnfinished);
  }
}

// The file that `path` leads to, which may not be there yet.
std::string BehindLinks(std::filesystem::path path) {
  constexpr int kMostLinks = 40;  // as the system has it
  std::error_code error;
  for (int i = 0; i < kMostLinks && std::filesystem::is_symlink(path, error); ++i) {
    const std::filesystem::path target = std::filesystem::read_symlink(path, error);
    path = target.is_absolute() ? target : path.parent_path() / target;
  }
  return path.string();
}

// Gives the new file what a file that is created the ordinary way has, or what the one has that it
// takes the place of. Where the system allows no more, or knows no such thing, it stays at that.
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

}  // namespace

Output::Output(const std::string& path)
    : path_(path == "-" ? "" : path), descriptor_(STDOUT_FILENO) {
  if (!path_.empty()) {
    CreateBeside();
  }
}

Output::Output(int descriptor, const std::string& name) : path_(name), descriptor_(descriptor) {}

Output::~Output() {
  if (!temporary_.empty()) {
    close(descriptor_);
    unlink(temporary_.c_str());
    gUnfinished = nullptr;
  }
}

void Output::CreateBeside() {
  std::error_code error;
  if (std::filesystem::exists(path_, error)) {
    if (!std::filesystem::is_regular_file(path_, error)) {
      throw Failure("cannot put " + path_ + " in place: it is no plain file; name one, or leave " +
                    "--output out and redirect standard output");
    }
    if (access(path_.c_str(), W_OK) == -1) {
      Fail("replace");
    }
    path_ = std::filesystem::canonical(path_).string();
  } else {
    path_ = BehindLinks(path_);
  }
  std::string name = path_ + ".unfinished-XXXXXX";
  descriptor_ = mkostemp(name.data(), O_CLOEXEC);
  if (descriptor_ == -1) {
    Fail("create");
  }
  temporary_ = name;
  gUnfinished = temporary_.c_str();
  BeforeEndingBySignal(RemoveUnfinished);
  TakeOver(descriptor_, path_);
}

void Output::Write(std::string_view text) {
  pending_ += text;
  if (pending_.size() >= kBlock) {
    Flush();
  }
}

void Output::Flush() {
  if (path_.empty() && isatty(descriptor_) == 1) {
    pending_ = ForTerminal(pending_);
  }
  std::string_view rest = pending_;
  while (!rest.empty()) {
    const ssize_t count = write(descriptor_, rest.data(), rest.size());
    if (count == -1 && errno == EPIPE) {
      throw ClosedPipe();
    }
    if (count == -1 && errno != EINTR) {
      Fail("write");
    }
    rest.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
  }
  pending_.clear();
}

void Output::Finish() {
  Flush();
  if (temporary_.empty()) {
    if (!path_.empty() && fsync(descriptor_) == -1) {
      Fail("write");
    }
    return;
  }
  if (fsync(descriptor_) == -1 || rename(temporary_.c_str(), path_.c_str()) == -1) {
    Fail("write");
  }
  gUnfinished = nullptr;
  temporary_.clear();
  close(descriptor_);

  // The name lasts only once the folder has been written, too.
  const std::string folder = std::filesystem::path(path_).parent_path().string();
  const int directory = open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY);
  if (directory != -1) {
    fsync(directory);
    close(directory);
  }
}

void Output::Fail(const std::string& what) const {
  const std::string reason = std::generic_category().message(errno);
  throw Failure("cannot " + what + " " + (path_.empty() ? "standard output" : path_) + ": " +
                reason);
}

}  // namespace postwright
