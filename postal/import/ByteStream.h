#ifndef POSTWRIGHT_POSTAL_IMPORT_BYTESTREAM_H_
#define POSTWRIGHT_POSTAL_IMPORT_BYTESTREAM_H_

#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

namespace postwright::postal {

// Bytes from the beginning to the end: a file's, or those of one file within a zip archive.
class ByteStream {
 public:
  // Says by the first bytes of a file whether it is a zip archive.
  static bool IsArchive(std::string_view head);

  // Opens `file`; of a zip archive the first file within whose name has the given ending, in
  // capitals or not. Throws SourceError where it cannot be read or has no such file.
  static std::unique_ptr<ByteStream> Open(const std::filesystem::path& file,
                                          const std::string& ending);

  virtual ~ByteStream() = default;

  // Reads up to `size` bytes, and fewer at the end alone. Throws SourceError.
  virtual size_t Read(char* bytes, size_t size) = 0;
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_IMPORT_BYTESTREAM_H_
