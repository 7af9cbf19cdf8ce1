#include "postal/store/FileImage.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <string>

#include "common/FileDescriptor.h"
#include "postal/store/Sqlite.h"

namespace postwright::postal {
namespace {

[[noreturn]] void Fail(const std::filesystem::path& file, const char* what, int code) {
  throw StoreError(file.string() + ": " + what + ": " + std::strerror(errno), code);
}

// A read takes 2 GiB at most.
void ReadWhole(const std::filesystem::path& file, int from, unsigned char* bytes, size_t size) {
  for (size_t done = 0; done < size;) {
    errno = 0;
    const ssize_t got = read(from, bytes + done, size - done);
    if (got <= 0 && errno != EINTR) {
      errno = got == 0 ? EIO : errno;  // it has become shorter
      Fail(file, "cannot be read to its end", SQLITE_IOERR);
    }
    done += static_cast<size_t>(std::max<ssize_t>(got, 0));
  }
}

}  // namespace

FileImage::FileImage(const std::filesystem::path& file, Kind kind) {
  const FileDescriptor opened(open(file.c_str(), O_RDONLY | O_CLOEXEC));
  struct stat facts {};
  if (opened < 0 || fstat(opened, &facts) != 0) {
    Fail(file, "cannot be read", SQLITE_CANTOPEN);
  }
  const auto size = static_cast<size_t>(facts.st_size);
  if (size == 0) {
    return;
  }
  const bool isCopied = kind == Kind::Copied;
  void* const mapped = mmap(nullptr, size, isCopied ? PROT_READ | PROT_WRITE : PROT_READ,
                            isCopied ? MAP_PRIVATE | MAP_ANONYMOUS : MAP_PRIVATE,
                            isCopied ? -1 : static_cast<int>(opened), 0);
  if (mapped == MAP_FAILED) {
    Fail(file, "no memory for it", SQLITE_NOMEM);
  }
  bytes_ = {static_cast<unsigned char*>(mapped), Unmap{size}};
  if (isCopied) {
    ReadWhole(file, opened, bytes_.get(), size);
  } else if (mprotect(mapped, 1, PROT_READ | PROT_WRITE) != 0) {
    Fail(file, "no memory for it", SQLITE_NOMEM);
  }
}

void FileImage::Unmap::operator()(unsigned char* bytes) const {
  munmap(bytes, size);
}

}  // namespace postwright::postal
