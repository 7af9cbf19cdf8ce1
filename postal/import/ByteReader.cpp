#include "postal/import/ByteReader.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "postal/import/RowSource.h"

namespace postwright::postal {
namespace {

constexpr size_t kBuffer = size_t{1} * 1024 * 1024;
constexpr size_t kKept = kBuffer / 4;  // of what was read, after which Fill reads on
constexpr int kMostBeginnings = 20;

}  // namespace

ByteReader::ByteReader(SourceFile file)
    : file_(std::move(file)), stream_(ByteStream::Open(file_)), buffer_(kBuffer, '\0') {}

bool ByteReader::Fill() {
  const size_t kept = std::min(end_, kKept);
  std::memmove(buffer_.data(), buffer_.data() + end_ - kept, kept);
  begin_ += static_cast<int64_t>(end_ - kept);
  at_ = kept;
  end_ = kept + stream_->Read(buffer_.data() + kept, kBuffer - kept);
  return at_ < end_;
}

bool ByteReader::ReadLine(std::string& line, size_t most) {
  line.clear();
  if (at_ == end_ && !Fill()) {
    return false;
  }
  for (bool isWhole = false; !isWhole && (at_ < end_ || Fill());) {
    const char* const from = buffer_.data() + at_;
    const auto* const feed = static_cast<const char*>(std::memchr(from, '\n', end_ - at_));
    isWhole = feed != nullptr;
    const size_t length = isWhole ? static_cast<size_t>(feed - from) : end_ - at_;
    line.append(from, std::min(length, most + 1 - std::min(line.size(), most + 1)));
    at_ += length + (isWhole ? 1 : 0);
  }
  return true;
}

void ByteReader::GoTo(int64_t position) {
  const bool isBehind = position < begin_;
  if (!isBehind && position <= begin_ + static_cast<int64_t>(end_)) {
    at_ = static_cast<size_t>(position - begin_);
    return;
  }
  if (stream_->Seek(position)) {
    begin_ = position;
    at_ = end_ = 0;
    return;
  }
  if (isBehind) {
    if (++beginnings_ > kMostBeginnings) {
      throw SourceError(file_.Name() +
                        ": has rows that are too long to be read while it is packed; unpack it");
    }
    stream_ = ByteStream::Open(file_);
    begin_ = 0;
    at_ = end_ = 0;
  }
  Skip(position);
}

void ByteReader::Skip(int64_t position) {
  do {
    at_ = end_;
  } while (begin_ + static_cast<int64_t>(end_) < position && Fill());
  const int64_t end = begin_ + static_cast<int64_t>(end_);
  at_ = static_cast<size_t>(std::min(position, end) - begin_);
}

}  // namespace postwright::postal
