#include "service/http/RequestLog.h"

#include <poll.h>
#include <unistd.h>

#include <chrono>
#include <utility>

#include "common/ShownText.h"

namespace postwright::service {
namespace {

constexpr std::chrono::milliseconds kGathering(10);
constexpr size_t kPipe = 4096;      // PIPE_BUF: what is written to a pipe whole or not at all
constexpr int kPollPause = 100;     // ms between two looks whether the end has come
constexpr int kLastPatience = 500;  // ms for a reader that sleeps at the end

}  // namespace

RequestLog::RequestLog(int descriptor, std::string prefix)
    : descriptor_(descriptor), prefix_(std::move(prefix)) {
  if (descriptor_ >= 0) {
    thread_ = std::thread(&RequestLog::Run, this);
  }
}

RequestLog::~RequestLog() {
  {
    const std::lock_guard lock(mutex_);
    isEnding_ = true;
  }
  wake_.notify_one();
  if (thread_.joinable()) {
    thread_.join();
  }
}

void RequestLog::Write(std::string_view line) {
  std::unique_lock lock(mutex_);
  if (descriptor_ < 0 || waiting_.size() + 2 * kLongestLine > kMostWaiting) {
    ++leftOut_;
    return;
  }
  const bool sleeps = waiting_.empty();
  Append(line);
  lock.unlock();
  if (sleeps) {
    wake_.notify_one();
  }
}

void RequestLog::Append(std::string_view line) {
  waiting_ += prefix_;
  waiting_ += ShownText(line.substr(0, kLongestLine - prefix_.size() - 1), "?");
  waiting_ += '\n';
}

void RequestLog::Run() {
  std::string lines;
  std::unique_lock lock(mutex_);
  for (;;) {
    wake_.wait(lock, [this] { return isEnding_ || !waiting_.empty(); });
    if (waiting_.empty()) {
      return;
    }
    lines.clear();
    lines.swap(waiting_);
    if (leftOut_ > 0) {  // after those in `lines`, for which there was room
      Append(std::to_string(std::exchange(leftOut_, 0)) +
             " lines were left out, since nobody read them");
    }
    lock.unlock();
    if (!WriteLines(lines)) {
      return;
    }
    lock.lock();
    wake_.wait_for(lock, kGathering, [this] { return isEnding_.load(); });
  }
}

// Whole lines at a time, so that other writers of the same pipe come between them and not into
// them. Returns false where the end came first.
bool RequestLog::WriteLines(std::string_view lines) const {
  while (!lines.empty()) {
    if (!AwaitRoom()) {
      return false;
    }
    const size_t end = lines.size() <= kPipe ? lines.size() : lines.rfind('\n', kPipe - 1) + 1;
    // If the log cannot be written there is nowhere to report it.
    [[maybe_unused]] const ssize_t written = write(descriptor_, lines.data(), end);
    lines.remove_prefix(end);
  }
  return true;
}

// A pipe counts as writable only while PIPE_BUF bytes fit, so the write that follows does not wait.
// Returns false where the end cannot wait for that any longer.
bool RequestLog::AwaitRoom() const {
  pollfd state = {descriptor_, POLLOUT, 0};
  for (;;) {
    const bool isLast = isEnding_;
    if (poll(&state, 1, isLast ? kLastPatience : kPollPause) > 0) {
      return true;
    }
    if (isLast) {
      return false;
    }
  }
}

}  // namespace postwright::service
