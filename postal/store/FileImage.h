#ifndef POSTWRIGHT_POSTAL_STORE_FILEIMAGE_H_
#define POSTWRIGHT_POSTAL_STORE_FILEIMAGE_H_

#include <cstddef>
#include <filesystem>
#include <memory>
#include <span>

namespace postwright::postal {

// A file's content as it was at one time, in memory.
//
//   FileImage image("texas.base");
//   SqliteFile::OpenImage(image.Bytes(), "texas.base");
class FileImage {
 public:
  // Reads `file` whole. Throws StoreError where that fails or there is no memory for it.
  explicit FileImage(const std::filesystem::path& file);

  std::span<unsigned char> Bytes() const { return {bytes_.get(), size_}; }

 private:
  std::unique_ptr<unsigned char[]> bytes_;
  size_t size_ = 0;
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_STORE_FILEIMAGE_H_
