#ifndef POSTWRIGHT_CORE_C_HANDLES_H_
#define POSTWRIGHT_CORE_C_HANDLES_H_

#include <postwright/FixedAddress.h>
#include <postwright/postwright.h>

#include <array>
#include <atomic>
#include <mutex>
#include <optional>
#include <string>

struct postwright_address {
  std::array<std::string, POSTWRIGHT_ELEMENTS> elements;
  std::string text;
};

struct postwright_canceller {
  std::atomic<bool> cancelled = false;
};

namespace postwright {

// Waits for the turn at the parser, the process's only one, which a fix uses, too; nullopt where
// the caller has lost interest before it came. `cancelled` may be null.
std::optional<std::unique_lock<std::timed_mutex>> TakeTurn(const std::atomic<bool>* cancelled);

// The corrected address as a handle, which the caller owns.
postwright_address* NewAddress(const FixedAddress& fixed);

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_C_HANDLES_H_
