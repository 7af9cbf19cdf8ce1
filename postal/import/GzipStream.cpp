#include "postal/import/GzipStream.h"

#include <new>

#include "postal/import/RowSource.h"

namespace postwright::postal {
namespace {

constexpr size_t kInput = size_t{256} * 1024;
constexpr int kGzipAlone = 16;  // added to the size of the window

}  // namespace

bool GzipStream::IsLikely(std::string_view head) {
  return head.starts_with("\x1F\x8B");
}

GzipStream::GzipStream(std::unique_ptr<ByteStream> packed, std::string name)
    : packed_(std::move(packed)), name_(std::move(name)), input_(kInput, '\0') {
  if (inflateInit2(&unpacker_, MAX_WBITS + kGzipAlone) != Z_OK) {
    throw std::bad_alloc();
  }
}

GzipStream::~GzipStream() {
  inflateEnd(&unpacker_);
}

// False at the end of the packed bytes.
bool GzipStream::Refill() {
  if (unpacker_.avail_in == 0) {
    unpacker_.avail_in = static_cast<uInt>(packed_->Read(input_.data(), input_.size()));
    unpacker_.next_in = reinterpret_cast<Bytef*>(input_.data());
  }
  return unpacker_.avail_in > 0;
}

size_t GzipStream::Read(char* bytes, size_t size) {
  unpacker_.next_out = reinterpret_cast<Bytef*>(bytes);
  unpacker_.avail_out = static_cast<uInt>(size);
  while (unpacker_.avail_out > 0) {
    const bool hasInput = Refill();
    if (!hasInput && isBetween_) {
      break;
    }
    isBetween_ = false;
    const int end = inflate(&unpacker_, Z_NO_FLUSH);  // without input too: it may hold output back
    if (end == Z_BUF_ERROR && !hasInput) {
      throw SourceError(name_ + ": is cut short: what is packed in it does not end");
    }
    if (end == Z_STREAM_END) {
      inflateReset(&unpacker_);
      isBetween_ = true;
    } else if (end != Z_OK) {
      throw SourceError(name_ + ": is damaged: " +
                        (unpacker_.msg != nullptr ? unpacker_.msg : "it cannot be unpacked"));
    }
  }
  return size - unpacker_.avail_out;
}

}  // namespace postwright::postal
