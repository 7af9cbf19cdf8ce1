#ifndef POSTWRIGHT_POSTAL_IMPORT_BYTESTREAM_H_
#define POSTWRIGHT_POSTAL_IMPORT_BYTESTREAM_H_

#include <cstddef>
#include <cstdint>
#include <memory>

#include "postal/import/SourceFile.h"

namespace postwright::postal {

// Bytes from the beginning to the end.
class ByteStream {
 public:
  // Opens a file of a source. What gzip has packed is unpacked, whatever it is called. Throws
  // SourceError where it cannot be read.
  static std::unique_ptr<ByteStream> Open(const SourceFile& file);

  virtual ~ByteStream() = default;

  // Reads up to `size` bytes, and fewer at the end alone. Throws SourceError.
  virtual size_t Read(char* bytes, size_t size) = 0;

  // How much of the file was read, 0 to 1.
  virtual double Share() const = 0;

  // Goes to any place at no cost and returns true; false where there is but the way onwards.
  virtual bool Seek(int64_t /*position*/) { return false; }
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_IMPORT_BYTESTREAM_H_
