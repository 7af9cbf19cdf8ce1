#ifndef POSTWRIGHT_POSTAL_STORE_FILEIMAGE_H_
#define POSTWRIGHT_POSTAL_STORE_FILEIMAGE_H_

#include <cstddef>
#include <filesystem>
#include <memory>
#include <span>

namespace postwright::postal {

// A file's content in memory, as it was at one time.
//
//   FileImage image("texas.base", FileImage::Kind::Copied);
//   SqliteFile::OpenImage(image.Bytes(), "texas.base");
class FileImage {
 public:
  enum class Kind {
    Copied,  // whatever becomes of the file
    Mapped,  // at once and without memory of its own: the system reads what is looked at, and lets
             // it go where memory is short. A file that is cut short meanwhile, or whose disk
             // fails, ends the process (SIGBUS); one that another takes the place of (rename) stays
             // as it was
  };

  // Throws StoreError where the file cannot be read or there is no memory for it.
  FileImage(const std::filesystem::path& file, Kind kind);

  // The first page may be written to, which leaves the file as it is.
  std::span<unsigned char> Bytes() const { return {bytes_.get(), bytes_.get_deleter().size}; }

 private:
  struct Unmap {
    void operator()(unsigned char* bytes) const;

    size_t size;
  };

  std::unique_ptr<unsigned char[], Unmap> bytes_{nullptr, Unmap{0}};
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_STORE_FILEIMAGE_H_
