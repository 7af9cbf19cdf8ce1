#include "apps/postwright/stream/Output.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <utility>

#include "apps/TerminalText.h"
#include "apps/postwright/stream/EndingSignals.h"
#include "apps/postwright/stream/Failure.h"
#include "apps/postwright/stream/FilePlace.h"
#include "common/WritingLock.h"

namespace postwright {

namespace {

constexpr std::size_t kBlock = std::size_t{64} << 10U;
constexpr std::size_t kRandom = 6;         // characters that mkostemps makes up
constexpr std::size_t kLongestName = 200;  // of 255 bytes; some are put around it
constexpr std::string_view kEnding = ".writing";

// The unfinished file, for the signal handler; null while there is none.
const char* volatile gUnfinished = nullptr;

void RemoveUnfinished() {
  if (gUnfinished != nullptr) {
    unlink(gUnfinished);
  }
}

// Beside the file and hidden: ".fixed.jsonl."
std::string BeginningOfName(const std::filesystem::path& path) {
  return "." + path.filename().string().substr(0, kLongestName) + ".";
}

// Removes what killed runs have left.
void RemoveLeftovers(const std::filesystem::path& path) {
  const std::string beginning = BeginningOfName(path);
  const std::filesystem::path folder = path.has_parent_path() ? path.parent_path() : ".";
  std::error_code error;
  std::filesystem::directory_iterator files(folder, error);
  for (; !error && files != std::filesystem::directory_iterator(); files.increment(error)) {
    const std::string name = files->path().filename().string();
    if (name.size() == beginning.size() + kRandom + kEnding.size() && name.starts_with(beginning) &&
        name.ends_with(kEnding)) {
      RemoveUnlessLocked(files->path().string());
    }
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
      throw Failure("cannot put " + path_ +
                    " in place: it is not a plain file; name one, or leave " +
                    "--output out and redirect standard output");
    }
    if (access(path_.c_str(), W_OK) == -1) {
      Fail("replace");
    }
    path_ = std::filesystem::canonical(path_).string();
  } else {
    path_ = BehindLinks(path_);
  }
  const std::filesystem::path path = path_;
  const std::string beginning = (path.parent_path() / BeginningOfName(path)).string();
  RemoveLeftovers(path);
  descriptor_ = -1;
  do {
    close(descriptor_);
    temporary_ = beginning + std::string(kRandom, 'X') + std::string(kEnding);
    descriptor_ = mkostemps(temporary_.data(), static_cast<int>(kEnding.size()), O_CLOEXEC);
    if (descriptor_ == -1) {
      temporary_.clear();
      Fail("create");
    }
  } while (!LockNewFile(descriptor_, temporary_));
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
  if (!PutInPlace(descriptor_, temporary_, path_)) {
    Fail("write");
  }
  gUnfinished = nullptr;
  temporary_.clear();
  close(descriptor_);
}

std::string Output::Keep() {
  if (temporary_.empty()) {
    Finish();
    return "";
  }
  Flush();
  if (fsync(descriptor_) == -1) {
    Fail("write");
  }
  // A name that no later run takes for that of one that was killed.
  const std::string kept = path_ + ".unfinished-" +
                           temporary_.substr(temporary_.size() - kEnding.size() - kRandom, kRandom);
  if (rename(temporary_.c_str(), kept.c_str()) == -1) {
    Fail("write");
  }
  gUnfinished = nullptr;
  temporary_.clear();
  close(descriptor_);
  return kept;
}

void Output::Fail(const std::string& what) const {
  const std::string reason = std::generic_category().message(errno);
  throw Failure("cannot " + what + " " + (path_.empty() ? "standard output" : path_) + ": " +
                reason);
}

}  // namespace postwright
