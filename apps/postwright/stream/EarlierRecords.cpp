#include "apps/postwright/stream/EarlierRecords.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

#include "apps/postwright/stream/Failure.h"
#include "apps/postwright/stream/FilePlace.h"
#include "apps/postwright/stream/Output.h"

namespace postwright {

namespace {

bool IsSameFile(const struct stat& one, const struct stat& other) {
  return one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

bool NextWhole(LineReader& reader) {
  return reader.Next() && reader.IsWhole();
}

bool IsThere(const std::string& path) {
  struct stat there {};
  return lstat(path.c_str(), &there) == 0;
}

bool IsPlain(const std::string& path) {
  struct stat there {};
  return lstat(path.c_str(), &there) == 0 && S_ISREG(there.st_mode);
}

}  // namespace

EarlierRecords::EarlierRecords(const std::string& path, int input, RecordForm& form)
    : name_(path), path_(path), form_(form) {
  Open();
  CheckFile(input);
  struct stat behind {};
  struct stat file {};
  const std::string target = BehindLinks(name_);
  // Not so of a file without a name, which has a link to it all the same.
  if (stat(target.c_str(), &behind) == 0 && fstat(descriptor_, &file) == 0 &&
      IsSameFile(behind, file)) {
    path_ = target;
  }
  reader_.emplace(descriptor_, path);
  if (IsThere(AgainPath())) {
    if (!IsPlain(AgainPath())) {
      Refuse(AgainPath() + " beside it is not a plain file; move that away");
    }
    again_.emplace(AgainPath());
  }
}

EarlierRecords::~EarlierRecords() {
  close(descriptor_);
  close(beside_);
}

void EarlierRecords::Open() {
  const int opened = open(name_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NONBLOCK, 0666);
  if (opened == -1) {
    Fail("open", name_);
  }
  if (descriptor_ != -1) {
    close(descriptor_);
  }
  descriptor_ = opened;
}

void EarlierRecords::CheckFile(int input) const {
  struct stat file {};
  struct stat labels {};
  struct stat there {};
  if (fstat(descriptor_, &file) == -1 || fstat(input, &labels) == -1) {
    Fail("open", name_);
  }
  if (!S_ISREG(file.st_mode)) {
    Refuse("it is not a plain file; name the one that the earlier run wrote");
  }
  if (IsSameFile(file, labels)) {
    Refuse("it is the input itself; name the file that the earlier run wrote");
  }
  const bool isBusy = flock(descriptor_, LOCK_EX | LOCK_NB) == -1 && errno == EWOULDBLOCK;
  // Another run may have put a new file into its place since it was opened.
  if (isBusy || stat(name_.c_str(), &there) == -1 || !IsSameFile(file, there)) {
    Refuse("another run is writing it; wait for that to end");
  }
  char first = 0;
  if (pread(descriptor_, &first, 1, 0) == 1 && first != '{') {
    Refuse("its line 1 is not a record of " + form_.Run() +
           "; name the file that the earlier run wrote");
  }
}

bool EarlierRecords::Next() {
  isMadeAgain_ = again_ && NextWhole(*again_);
  if (!isMadeAgain_) {
    again_.reset();
  }
  if (NextWhole(*reader_)) {
    length_ += static_cast<off_t>(reader_->Line().size() + 1);
    return true;
  }
  if (isMadeAgain_) {
    Refuse(AgainPath() + " beside it holds more records than it does; move that away");
  }
  return false;
}

void EarlierRecords::Check(const LabelLine* label) {
  CheckRecord(*reader_, "its", label);
  if (isMadeAgain_) {
    CheckRecord(*again_, AgainPath() + ", beside it, is not its own: that one's", label);
  }
}

void EarlierRecords::CheckRecord(LineReader& reader, const std::string& whose,
                                 const LabelLine* label) {
  const std::string place = "line " + std::to_string(reader.Number());
  if (reader.IsTooLong() || !form_.IsRecord(reader.Line())) {
    Refuse(whose + ' ' + place + " is not a record of " + form_.Run() +
           "; name the file that the earlier run wrote");
  }
  if (label == nullptr) {
    Refuse("it holds more records than the input has lines; give the same input again");
  }
  if (!form_.IsOf(reader, *label)) {
    Refuse(whose + ' ' + place + " is not the record of " + place +
           " of the input; give the same input again, or another file");
  }
}

void EarlierRecords::Settle() {
  reader_.reset();
  again_.reset();
  if (IsThere(AgainPath())) {
    Merge();
  } else if (ftruncate(descriptor_, length_) == -1) {
    Fail("write", name_);
  }
}

// Both files are there until the new one has its name; where that is all that happens, the same is
// done again, and changes nothing.
void EarlierRecords::Merge() {
  Output merged(path_);
  LineReader records(path_);
  LineReader madeAgain(AgainPath());
  bool isMadeAgain = true;
  while (NextWhole(records)) {
    isMadeAgain = isMadeAgain && NextWhole(madeAgain);
    merged.Write(std::string((isMadeAgain ? madeAgain : records).Line()) + '\n');
  }
  merged.Finish();
  unlink(AgainPath().c_str());
  Open();
  if (flock(descriptor_, LOCK_EX | LOCK_NB) == -1) {
    Refuse("another run is writing it; wait for that to end");
  }
}

int EarlierRecords::BeginAgain() {
  beside_ = open(AgainPath().c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
  if (beside_ == -1) {
    Fail("create", AgainPath());
  }
  TakeOver(beside_, path_);
  flock(beside_, LOCK_EX | LOCK_NB);  // before it can be opened by the name of the other
  return beside_;
}

void EarlierRecords::EndAgain() {
  if (!PutInPlace(beside_, AgainPath(), path_)) {
    Fail("write", name_);
  }
  close(std::exchange(descriptor_, std::exchange(beside_, -1)));
}

int EarlierRecords::Continue() {
  if (lseek(descriptor_, 0, SEEK_END) == -1) {
    Fail("write", name_);
  }
  return descriptor_;
}

void EarlierRecords::Refuse(const std::string& reason) const {
  throw Failure("cannot resume " + name_ + ": " + reason);
}

void EarlierRecords::Fail(const std::string& what, const std::string& path) const {
  throw Failure("cannot " + what + " " + path + ": " + std::generic_category().message(errno));
}

}  // namespace postwright
