#ifndef POSTWRIGHT_COMMON_FILEDESCRIPTOR_H_
#define POSTWRIGHT_COMMON_FILEDESCRIPTOR_H_

#include <unistd.h>

namespace postwright {

// A file's descriptor, closed when it goes out of scope; negative where opening failed, which errno
// then tells.
//
//   const FileDescriptor file(open(path, O_RDONLY | O_CLOEXEC));
//   if (file < 0) ...
class FileDescriptor {
 public:
  explicit FileDescriptor(int number) : number_(number) {}
  ~FileDescriptor() {
    if (number_ >= 0) {
      close(number_);
    }
  }
  FileDescriptor(const FileDescriptor&) = delete;
  FileDescriptor& operator=(const FileDescriptor&) = delete;

  operator int() const { return number_; }

 private:
  const int number_;
};

}  // namespace postwright

#endif  // POSTWRIGHT_COMMON_FILEDESCRIPTOR_H_
