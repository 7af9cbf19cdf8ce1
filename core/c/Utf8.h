#ifndef POSTWRIGHT_CORE_C_UTF8_H_
#define POSTWRIGHT_CORE_C_UTF8_H_

#include <boost/locale/encoding_utf.hpp>

#include <string>
#include <string_view>

namespace postwright {

// The wide form of `text`. Throws boost::locale::conv::conversion_error where it is not UTF-8.
inline std::wstring WideFromUtf8(std::string_view text) {
  using boost::locale::conv::stop;
  return boost::locale::conv::utf_to_utf<wchar_t>(text.data(), text.data() + text.size(), stop);
}

// The UTF-8 form of `text`. Throws boost::locale::conv::conversion_error where it holds something
// that is no code point.
inline std::string Utf8FromWide(std::wstring_view text) {
  using boost::locale::conv::stop;
  return boost::locale::conv::utf_to_utf<char>(text.data(), text.data() + text.size(), stop);
}

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_C_UTF8_H_
