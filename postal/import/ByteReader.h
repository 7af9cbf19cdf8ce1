#ifndef POSTWRIGHT_POSTAL_IMPORT_BYTEREADER_H_
#define POSTWRIGHT_POSTAL_IMPORT_BYTEREADER_H_

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "postal/import/ByteStream.h"

namespace postwright::postal {

// The bytes of a source's file one by one, with a way back, though they may be packed in an
// archive. Memory is that of a buffer.
class ByteReader {
 public:
  static constexpr int kEnd = -1;

  // Throws SourceError, as do the others.
  explicit ByteReader(SourceFile file);

  // Returns the next byte, 0 to 255, or kEnd.
  int Get() { return at_ < end_ || Fill() ? static_cast<unsigned char>(buffer_[at_++]) : kEnd; }

  // Reads a line without its line feed; of one over `most` bytes no more than shows that it is.
  // False at the end.
  bool ReadLine(std::string& line, size_t most);

  // Where the next byte is, unpacked.
  int64_t Position() const { return begin_ + static_cast<int64_t>(at_); }

  // Goes on at a position. What is packed and is farther back than the buffer reaches is unpacked
  // from the beginning once more, which is refused where a file makes it happen again and again.
  void GoTo(int64_t position);

  // How much of the file was read, 0 to 1.
  double Share() const { return stream_->Share(); }

 private:
  bool Fill();
  void Skip(int64_t position);

  SourceFile file_;
  std::unique_ptr<ByteStream> stream_;
  std::string buffer_;
  size_t at_ = 0;      // of the next byte in the buffer,
  size_t end_ = 0;     // and of the end of what is in it
  int64_t begin_ = 0;  // of the buffer in the file
  int beginnings_ = 0;
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_IMPORT_BYTEREADER_H_
