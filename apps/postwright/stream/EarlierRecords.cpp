#include "apps/postwright/stream/EarlierRecords.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "apps/postwright/stream/Failure.h"
#include "apps/postwright/stream/JsonRecord.h"

namespace postwright {

EarlierRecords::EarlierRecords(const std::string& path, int input)
    : path_(path),
      descriptor_(open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NONBLOCK, 0666)),
      reader_(descriptor_, path) {
  if (descriptor_ == -1) {
    Fail("open");
  }
  CheckFile(input);
}

void EarlierRecords::CheckFile(int input) const {
  struct stat file {};
  struct stat labels {};
  if (fstat(descriptor_, &file) == -1 || fstat(input, &labels) == -1) {
    Fail("open");
  }
  if (!S_ISREG(file.st_mode)) {
    Refuse("it is no plain file; name the one that the earlier run wrote");
  }
  if (file.st_dev == labels.st_dev && file.st_ino == labels.st_ino) {
    Refuse("it is the input itself; name the file that the earlier run wrote");
  }
  if (flock(descriptor_, LOCK_EX | LOCK_NB) == -1 && errno == EWOULDBLOCK) {
    Refuse("another run is writing it; wait for that to end");
  }
  char first = 0;
  if (pread(descriptor_, &first, 1, 0) == 1 && first != '{') {
    Refuse("its line 1 is no record of a fix; name the file that the earlier run wrote");
  }
}

bool EarlierRecords::Next() {
  if (!reader_.Next() || !reader_.IsWhole()) {
    return false;
  }
  length_ += static_cast<off_t>(reader_.Line().size() + 1);
  return true;
}

void EarlierRecords::Check(const LabelLine* label) {
  const std::string place = "line " + std::to_string(reader_.Number());
  if (reader_.IsTooLong() || StatusOfRecord(reader_.Line()) == -1) {
    Refuse("its " + place + " is no record of a fix; name the file that the earlier run wrote");
  }
  if (label == nullptr) {
    Refuse("it holds more records than the input has lines; give the same input again");
  }
  const LabelLine record = parser_.Parse(reader_);
  if (!record.problem.empty() || record.address != label->address || record.id != label->id) {
    Refuse("its " + place + " is not the record of " + place +
           " of the input; give the same input again, or another file");
  }
}

int EarlierRecords::Continue() {
  if (ftruncate(descriptor_, length_) == -1 || lseek(descriptor_, length_, SEEK_SET) == -1) {
    Fail("write");
  }
  return descriptor_;
}

void EarlierRecords::Refuse(const std::string& reason) const {
  throw Failure("cannot resume " + path_ + ": " + reason);
}

void EarlierRecords::Fail(const std::string& what) const {
  throw Failure("cannot " + what + " " + path_ + ": " + std::generic_category().message(errno));
}

}  // namespace postwright
