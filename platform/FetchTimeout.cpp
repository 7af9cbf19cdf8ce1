#include <postwright/FetchTimeout.h>

#include <algorithm>
#include <atomic>

namespace postwright {

namespace {

constexpr std::chrono::milliseconds kShortest(1);
constexpr std::chrono::milliseconds kLongest = std::chrono::hours(24);

std::atomic<std::chrono::milliseconds> gTimeout{std::chrono::seconds(POSTWRIGHT_FETCH_TIMEOUT)};

}  // namespace

std::chrono::milliseconds GetFetchTimeout() {
  return gTimeout;
}

void SetFetchTimeout(std::chrono::milliseconds timeout) {
  gTimeout = std::clamp(timeout, kShortest, kLongest);
}

}  // namespace postwright
