#ifndef POSTWRIGHT_TESTS_SCALING_SHAPES_H_
#define POSTWRIGHT_TESTS_SCALING_SHAPES_H_

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace postwright::scaling {

// A text of any size: `head`, as many pieces as needed, `tail`.
struct Shape {
  std::string_view reader;
  std::string_view name;
  std::string head;
  std::string piece;
  std::string tail = {};
  std::string other = {};  // the piece of the other text, for readers of two
};

std::span<const Shape> Shapes();

// The shape's text with `size` bytes of pieces, and the other text with as many pieces.
std::string TextOf(const Shape& shape, std::size_t size);
std::string OtherOf(const Shape& shape, std::size_t size);

}  // namespace postwright::scaling

#endif  // POSTWRIGHT_TESTS_SCALING_SHAPES_H_
