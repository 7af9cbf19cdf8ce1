#include "postal/store/FileImage.h"

#include <sys/mman.h>

#include <fstream>

#include "postal/store/Sqlite.h"

namespace postwright::postal {
namespace {

constexpr size_t kLargePage = size_t{2} * 1024 * 1024;

}  // namespace

FileImage::FileImage(const std::filesystem::path& file) {
  std::ifstream input(file, std::ios::binary | std::ios::ate);
  const std::streamoff size = input.tellg();
  if (!input || size < 0) {
    throw StoreError(file.string() + ": cannot be read", SQLITE_CANTOPEN);
  }
  size_ = static_cast<size_t>(size);
  const size_t pages = size_ / kLargePage + 1;
  bytes_.reset(static_cast<unsigned char*>(std::aligned_alloc(kLargePage, pages * kLargePage)));
  if (!bytes_) {
    throw StoreError(file.string() + ": no memory for it", SQLITE_NOMEM);
  }
  madvise(bytes_.get(), pages * kLargePage, MADV_HUGEPAGE);  // a wish: ordinary ones do as well
  input.seekg(0);
  if (!input.read(reinterpret_cast<char*>(bytes_.get()), size)) {
    throw StoreError(file.string() + ": cannot be read to its end", SQLITE_IOERR);
  }
}

}  // namespace postwright::postal
