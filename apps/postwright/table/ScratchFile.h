#ifndef POSTWRIGHT_APPS_POSTWRIGHT_TABLE_SCRATCHFILE_H_
#define POSTWRIGHT_APPS_POSTWRIGHT_TABLE_SCRATCHFILE_H_

#include <cstdio>
#include <memory>
#include <string>

namespace postwright {

// A file without a name. It disappears with its object or its process, however that ends. Other
// code in this process opens it by its path.
class ScratchFile {
 public:
  // Makes it where the system keeps temporary files. Throws Failure where that is impossible.
  ScratchFile();

  int Descriptor() const { return fileno(file_.get()); }

  // A path that opens the same file, at its beginning.
  std::string Path() const { return "/proc/self/fd/" + std::to_string(Descriptor()); }

 private:
  std::unique_ptr<std::FILE, int (*)(std::FILE*)> file_;
};

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_POSTWRIGHT_TABLE_SCRATCHFILE_H_
