#include "postal/store/FileImage.h"

#include <fstream>
#include <new>

#include "postal/store/Sqlite.h"

namespace postwright::postal {

FileImage::FileImage(const std::filesystem::path& file) {
  std::ifstream input(file, std::ios::binary | std::ios::ate);
  const std::streamoff size = input.tellg();
  if (!input || size < 0) {
    throw StoreError(file.string() + ": cannot be read", SQLITE_CANTOPEN);
  }
  size_ = static_cast<size_t>(size);
  bytes_.reset(new (std::nothrow) unsigned char[size_]);
  if (!bytes_) {
    throw StoreError(file.string() + ": no memory for it", SQLITE_NOMEM);
  }
  input.seekg(0);
  if (!input.read(reinterpret_cast<char*>(bytes_.get()), size)) {
    throw StoreError(file.string() + ": cannot be read to its end", SQLITE_IOERR);
  }
}

}  // namespace postwright::postal
