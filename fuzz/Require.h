#ifndef POSTWRIGHT_FUZZ_REQUIRE_H_
#define POSTWRIGHT_FUZZ_REQUIRE_H_

#include <cstdio>
#include <cstdlib>

namespace postwright::fuzz {

// Ends the run if a property does not hold, and says which.
inline void Require(bool holds, const char* property) {
  if (!holds) {
    std::fprintf(stderr, "broken: %s\n", property);
    std::abort();
  }
}

}  // namespace postwright::fuzz

#endif  // POSTWRIGHT_FUZZ_REQUIRE_H_
