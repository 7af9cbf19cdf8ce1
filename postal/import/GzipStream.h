#ifndef POSTWRIGHT_POSTAL_IMPORT_GZIPSTREAM_H_
#define POSTWRIGHT_POSTAL_IMPORT_GZIPSTREAM_H_

#include <zlib.h>

#include <memory>
#include <string>
#include <string_view>

#include "postal/import/ByteStream.h"

namespace postwright::postal {

// What gzip (RFC 1952) has packed, unpacked as it is read; several packed files one after the
// other are one, as for gunzip. Memory is that of the window, whatever it unpacks to.
class GzipStream : public ByteStream {
 public:
  // Says by the first bytes of a file whether it is so packed.
  static bool IsLikely(std::string_view head);

  // `name` stands for the file in what a SourceError says.
  GzipStream(std::unique_ptr<ByteStream> packed, std::string name);
  ~GzipStream() override;
  GzipStream(const GzipStream&) = delete;
  GzipStream& operator=(const GzipStream&) = delete;

  size_t Read(char* bytes, size_t size) override;
  double Share() const override { return packed_->Share(); }

 private:
  bool Refill();

  std::unique_ptr<ByteStream> packed_;
  std::string name_;
  std::string input_;
  z_stream unpacker_{};
  bool isBetween_ = false;  // one packed file has ended, and no other has begun
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_IMPORT_GZIPSTREAM_H_
