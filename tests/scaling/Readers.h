#ifndef POSTWRIGHT_TESTS_SCALING_READERS_H_
#define POSTWRIGHT_TESTS_SCALING_READERS_H_

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace postwright::scaling {

// A reader of untrusted input.
struct Reader {
  std::string_view name;
  // Any outcome will do, a result or a refusal. `other` is for readers of two texts.
  void (*read)(const std::string& text, const std::string& other);
  std::size_t size;  // bytes of the smaller text
};

std::span<const Reader> Readers();

}  // namespace postwright::scaling

#endif  // POSTWRIGHT_TESTS_SCALING_READERS_H_
