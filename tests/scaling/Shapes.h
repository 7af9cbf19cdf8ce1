#ifndef POSTWRIGHT_TESTS_SCALING_SHAPES_H_
#define POSTWRIGHT_TESTS_SCALING_SHAPES_H_

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace postwright::scaling {

// A text of any size: `head`, as many pieces as it takes, `tail`.
struct Shape {
  std::string_view reader;
  std::string_view name;
  std::string head;
  std::string piece;
  std::string tail = {};
  std::string other = {};  // the piece of the other text, of readers that read two
};

std::span<const Shape> Shapes();

// The shape's text with pieces of `size` bytes in all, and the other one with as many.
std::string TextOf(const Shape& shape, std::size_t size);
std::string OtherOf(const Shape& shape, std::size_t size);

}  // namespace postwright::scaling

#endif  // POSTWRIGHT_TESTS_SCALING_SHAPES_H_
