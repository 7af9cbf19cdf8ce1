#include "apps/postwright/InputBytes.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "apps/postwright/stream/Failure.h"

namespace postwright {

namespace {

constexpr std::size_t kBlock = std::size_t{64} << 10U;

}  // namespace

InputBytes::InputBytes(const std::string& name)
    : name_(name == "-" ? "standard input" : name),
      descriptor_(name == "-" ? STDIN_FILENO : open(name.c_str(), O_RDONLY | O_CLOEXEC)) {
  if (descriptor_ == -1) {
    Fail();
  }
}

InputBytes::~InputBytes() {
  if (descriptor_ != STDIN_FILENO) {
    close(descriptor_);
  }
}

void InputBytes::ReadTo(std::size_t limit) {
  while (!isWhole_ && bytes_.size() <= limit) {
    char block[kBlock];
    const ssize_t count = read(descriptor_, block, sizeof block);
    if (count == -1 && errno != EINTR) {
      Fail();
    }
    isWhole_ = count == 0;
    bytes_.append(block, count > 0 ? count : 0);
  }
}

void InputBytes::Fail() const {
  throw Failure("cannot read " + name_ + ": " + std::generic_category().message(errno));
}

}  // namespace postwright
