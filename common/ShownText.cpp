#include "common/ShownText.h"

#include <boost/locale/utf.hpp>

namespace postwright {
namespace {

namespace utf = boost::locale::utf;

bool IsControl(utf::code_point c) {
  return c < 0x20 || (c >= 0x7F && c < 0xA0) || c == 0x2028 || c == 0x2029;
}

bool ChangesDirection(utf::code_point c) {
  return c == 0x061C || c == 0x200E || c == 0x200F || (c >= 0x202A && c <= 0x202E) ||
         (c >= 0x2066 && c <= 0x2069);
}

}  // namespace

std::string ShownText(std::string_view text, std::string_view mark, std::string_view kept) {
  std::string shown;
  shown.reserve(text.size());
  while (!text.empty()) {
    const char* end = text.data();
    const utf::code_point c = utf::utf_traits<char>::decode(end, text.data() + text.size());
    const bool isCharacter = c != utf::illegal && c != utf::incomplete;
    const size_t length = isCharacter ? static_cast<size_t>(end - text.data()) : 1;
    const bool isShown = isCharacter && ((!IsControl(c) && !ChangesDirection(c)) ||
                                         (length == 1 && kept.find(text[0]) != kept.npos));
    shown += isShown ? text.substr(0, length) : mark;
    text.remove_prefix(length);
  }
  return shown;
}

}  // namespace postwright
