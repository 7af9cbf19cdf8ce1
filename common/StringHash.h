#ifndef POSTWRIGHT_COMMON_STRINGHASH_H_
#define POSTWRIGHT_COMMON_STRINGHASH_H_

#include <cstddef>
#include <functional>
#include <string_view>

namespace postwright {

// Lets an unordered container of strings be asked with a piece of a text, without making a string
// of it; std::equal_to<> goes with it.
//
//   std::unordered_set<std::wstring, StringHash<wchar_t>, std::equal_to<>> words;
//   words.contains(text.substr(begin, length));
//
// Not noexcept, and so the standard library keeps each key's hash with the key: it would otherwise
// work it out anew for every key that a search passes.
template <typename Char>
struct StringHash {
  using is_transparent = void;

  std::size_t operator()(std::basic_string_view<Char> text) const {
    return std::hash<std::basic_string_view<Char>>()(text);
  }
};

}  // namespace postwright

#endif  // POSTWRIGHT_COMMON_STRINGHASH_H_
