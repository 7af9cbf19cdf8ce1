#ifndef POSTWRIGHT_COMMON_WIDETEXT_H_
#define POSTWRIGHT_COMMON_WIDETEXT_H_

#include <boost/locale/encoding_utf.hpp>
#include <iterator>
#include <string>
#include <string_view>

namespace postwright {

// Between UTF-8 and the wide strings of the core, whatever the locale. Pure, for any thread.

// The wide form of `text`. Throws boost::locale::conv::conversion_error where it is not UTF-8.
inline std::wstring WideFromUtf8(std::string_view text) {
  using boost::locale::conv::stop;
  return boost::locale::conv::utf_to_utf<wchar_t>(text.data(), text.data() + text.size(), stop);
}

// The UTF-8 form of `text`. Throws boost::locale::conv::conversion_error where it holds something
// that is not a code point.
inline std::string Utf8FromWide(std::wstring_view text) {
  using boost::locale::conv::stop;
  return boost::locale::conv::utf_to_utf<char>(text.data(), text.data() + text.size(), stop);
}

// Appends the UTF-8 form of one character; U+FFFD for what is not a code point (half a surrogate
// pair).
inline void AppendUtf8(wchar_t character, std::string& text) {
  namespace utf = boost::locale::utf;
  constexpr utf::code_point kReplacement = 0xFFFD;
  const auto point = static_cast<utf::code_point>(character);
  utf::utf_traits<char>::encode(utf::is_valid_codepoint(point) ? point : kReplacement,
                                std::back_inserter(text));
}

// The UTF-8 form of any text, for people to read.
inline std::string Utf8FromAnyWide(std::wstring_view text) {
  std::string shown;
  shown.reserve(text.size());
  for (const wchar_t character : text) {
    AppendUtf8(character, shown);
  }
  return shown;
}

}  // namespace postwright

#endif  // POSTWRIGHT_COMMON_WIDETEXT_H_
