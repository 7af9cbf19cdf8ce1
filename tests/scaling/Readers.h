#ifndef POSTWRIGHT_TESTS_SCALING_READERS_H_
#define POSTWRIGHT_TESTS_SCALING_READERS_H_

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace postwright::scaling {

// One of those that read what comes from outside.
struct Reader {
  std::string_view name;
  // Whatever comes of it: a result, or a refusal. `other` is of those that read two texts.
  void (*read)(const std::string& text, const std::string& other);
  std::size_t size;  // bytes of the smaller text that its steps are counted for
};

std::span<const Reader> Readers();

}  // namespace postwright::scaling

#endif  // POSTWRIGHT_TESTS_SCALING_READERS_H_
