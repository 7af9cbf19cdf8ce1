#ifndef POSTWRIGHT_FUZZ_INPUTFILE_H_
#define POSTWRIGHT_FUZZ_INPUTFILE_H_

#include <sys/mman.h>
#include <unistd.h>

#include <string>
#include <string_view>

#include "fuzz/Require.h"

namespace postwright::fuzz {

// An input as a file, for readers that take a path. It is in memory and has no name, so it is gone
// with its object, however the process ends.
class InputFile {
 public:
  explicit InputFile(std::string_view bytes) : descriptor_(memfd_create("input", 0)) {
    Require(descriptor_ >= 0 && write(descriptor_, bytes.data(), bytes.size()) ==
                                    static_cast<ssize_t>(bytes.size()),
            "there is memory for the input");
    lseek(descriptor_, 0, SEEK_SET);
  }
  ~InputFile() { close(descriptor_); }
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;

  // Positioned at the beginning.
  int Descriptor() const { return descriptor_; }

  // A path that opens it again, at the beginning.
  std::string Path() const { return "/proc/self/fd/" + std::to_string(descriptor_); }

 private:
  int descriptor_;
};

}  // namespace postwright::fuzz

#endif  // POSTWRIGHT_FUZZ_INPUTFILE_H_
