#ifndef POSTWRIGHT_COMMON_STRINGHASH_H_
#define POSTWRIGHT_COMMON_STRINGHASH_H_

#include <functional>
#include <string_view>

namespace postwright {

// Lets an unordered container of strings be asked with a piece of a text, without making a string
// of it; std::equal_to<> goes with it.
//
//   std::unordered_set<std::wstring, StringHash<wchar_t>, std::equal_to<>> words;
//   words.contains(text.substr(begin, length));
template <typename Char>
struct StringHash : std::hash<std::basic_string_view<Char>> {
  using is_transparent = void;
};

}  // namespace postwright

#endif  // POSTWRIGHT_COMMON_STRINGHASH_H_
