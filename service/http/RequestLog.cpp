#include "service/http/RequestLog.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>

namespace postwright::service {

RequestLog::RequestLog(int descriptor, std::string prefix)
    : descriptor_(descriptor), prefix_(std::move(prefix)) {}

void RequestLog::Write(std::string_view line) {
  const std::lock_guard lock(mutex_);
  if (!CanWrite()) {
    ++leftOut_;
    return;
  }
  if (leftOut_ > 0) {
    WriteWhole(std::to_string(leftOut_) + " lines were left out, since nobody read them");
    leftOut_ = 0;
    if (!CanWrite()) {
      ++leftOut_;
      return;
    }
  }
  WriteWhole(line);
}

// A pipe counts as writable only while PIPE_BUF bytes fit, so the write that follows does not wait.
bool RequestLog::CanWrite() const {
  pollfd state = {descriptor_, POLLOUT, 0};
  return poll(&state, 1, 0) == 1 && (state.revents & POLLOUT) != 0;
}

void RequestLog::WriteWhole(std::string_view line) const {
  std::string text = prefix_ + std::string(line.substr(0, kLongestLine - prefix_.size() - 1));
  std::replace_if(
      text.begin(), text.end(), [](unsigned char c) { return c < ' ' || c == 0x7F; }, '?');
  text += '\n';
  // A log that cannot be written has nobody who could be told.
  [[maybe_unused]] const ssize_t written = write(descriptor_, text.data(), text.size());
}

}  // namespace postwright::service
