#ifndef POSTWRIGHT_POSTAL_STORE_FILEIMAGE_H_
#define POSTWRIGHT_POSTAL_STORE_FILEIMAGE_H_

#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <span>

namespace postwright::postal {

// A file's content as it was at one time, in memory that is made for random access: on large pages
// where the system has them.
//
//   FileImage image("texas.base");
//   SqliteFile::OpenImage(image.Bytes(), "texas.base");
class FileImage {
 public:
  // Reads `file` whole. Throws StoreError where that fails or there is no memory for it.
  explicit FileImage(const std::filesystem::path& file);

  std::span<unsigned char> Bytes() const { return {bytes_.get(), size_}; }

 private:
  struct Free {
    void operator()(void* memory) const { std::free(memory); }
  };

  std::unique_ptr<unsigned char, Free> bytes_;
  size_t size_ = 0;
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_STORE_FILEIMAGE_H_
