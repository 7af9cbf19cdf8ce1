#include "apps/postwright/stream/LineReader.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <system_error>

#include "apps/postwright/stream/Failure.h"

namespace postwright {

namespace {

constexpr std::size_t kBlock = std::size_t{64} << 10U;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

[[noreturn]] void FailToRead(const std::string& name) {
  throw Failure("cannot read " + name + ": " + std::generic_category().message(errno));
}

int Open(const std::string& name) {
  const int descriptor = open(name.c_str(), O_RDONLY | O_CLOEXEC);
  if (descriptor == -1) {
    FailToRead(name);
  }
  return descriptor;
}

}  // namespace

LineReader::LineReader(const std::string& name)
    : name_(name == "-" ? "standard input" : name),
      descriptor_(name == "-" ? STDIN_FILENO : Open(name)),
      isOwned_(name != "-"),
      buffer_(kBlock + kPadding) {}

LineReader::LineReader(int descriptor, std::string name)
    : name_(std::move(name)),
      descriptor_(descriptor),
      isOwned_(false),
      buffer_(kBlock + kPadding) {}

LineReader::~LineReader() {
  if (isOwned_) {
    close(descriptor_);
  }
}

bool LineReader::Next() {
  while (!IsLineAtHand()) {
    ReadSome();
  }
  const void* const feed = std::memchr(buffer_.data() + scanned_, '\n', end_ - scanned_);
  if (feed != nullptr) {
    TakeLine(static_cast<const char*>(feed) - (buffer_.data() + begin_), true);
    return true;
  }
  if (begin_ == end_ && !isPassingOver_) {
    return false;
  }
  TakeLine(end_ - begin_, false);
  return true;
}

void LineReader::TakeLine(std::size_t length, bool isWhole) {
  isTooLong_ = isPassingOver_ || length > kLimit;
  isPassingOver_ = false;
  isWhole_ = isWhole;
  line_ = std::string_view(buffer_.data() + begin_, isTooLong_ ? 0 : length);
  begin_ += length + (isWhole ? 1 : 0);
  scanned_ = begin_;
  ++number_;
}

bool LineReader::IsLineAtHand() const {
  return isEnded_ || std::memchr(buffer_.data() + scanned_, '\n', end_ - scanned_) != nullptr;
}

void LineReader::ReadSome() {
  scanned_ = end_;
  if (end_ - begin_ > kLimit) {
    isPassingOver_ = true;
    begin_ = scanned_ = end_ = 0;
  }
  Fill();
}

std::optional<std::size_t> LineReader::CountLinesAhead() const {
  struct stat file {};
  off_t offset = lseek(descriptor_, 0, SEEK_CUR);
  if (fstat(descriptor_, &file) == -1 || !S_ISREG(file.st_mode) || offset == -1) {
    return std::nullopt;
  }
  std::vector<char> block(kBlock);
  std::size_t lines = 0;
  char last = '\n';
  ssize_t count = 0;
  while ((count = pread(descriptor_, block.data(), block.size(), offset)) > 0) {
    lines += std::count(block.begin(), block.begin() + count, '\n');
    last = block[count - 1];
    offset += count;
  }
  return lines + (last == '\n' ? 0 : 1);
}

// Reads on after what is held. False at the end of the input.
bool LineReader::Fill() {
  if (isEnded_) {
    return false;
  }
  if (begin_ > 0) {
    std::memmove(buffer_.data(), buffer_.data() + begin_, end_ - begin_);
    end_ -= begin_;
    scanned_ -= begin_;
    begin_ = 0;
  }
  if (buffer_.size() < end_ + kBlock + kPadding) {
    buffer_.resize(2 * end_ + kBlock + kPadding);
  }
  ssize_t count = -1;
  do {
    count = read(descriptor_, buffer_.data() + end_, buffer_.size() - end_ - kPadding);
  } while (count == -1 && errno == EINTR);
  if (count == -1) {
    FailToRead(name_);
  }
  end_ += static_cast<std::size_t>(count);
  isEnded_ = count == 0;
  DropMark();
  return !isEnded_;
}

// A mark may come in pieces: it is waited for as long as what came could be the start of one.
void LineReader::DropMark() {
  const std::string_view held(buffer_.data() + begin_, end_ - begin_);
  if (isStarted_ ||
      (!isEnded_ && held.size() < kByteOrderMark.size() && kByteOrderMark.starts_with(held))) {
    return;
  }
  isStarted_ = true;
  if (held.starts_with(kByteOrderMark)) {
    begin_ += kByteOrderMark.size();
    scanned_ = begin_;
  }
}

}  // namespace postwright
