#ifndef POSTWRIGHT_PLATFORM_URLFETCH_H_
#define POSTWRIGHT_PLATFORM_URLFETCH_H_

#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace postwright {

// What ends a fetch.
struct FetchLimits {
  std::chrono::milliseconds connect = std::chrono::seconds(30);  // a host resolved and connected to
  std::chrono::seconds silence = std::chrono::seconds(60);       // with less than 1 byte a second
  std::size_t bytes = 16U << 20U;                                // of body
  long redirects = 20;
  // Null, or set from any thread to end the fetch as failed, within about a second. Outlives it.
  const std::atomic<bool>* abandoned = nullptr;
};

// Returns the body of one GET of `url`, which is absolute, http or https, and in ASCII or UTF-8;
// empty on failure of any kind. The connection is kept for the calling thread's next fetch and
// closed with the thread. Any number of threads at once; throws nothing.
std::vector<std::uint8_t> FetchUrl(const std::string& url, const FetchLimits& limits = {}) noexcept;

}  // namespace postwright

#endif  // POSTWRIGHT_PLATFORM_URLFETCH_H_
