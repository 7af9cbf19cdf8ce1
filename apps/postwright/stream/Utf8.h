#ifndef POSTWRIGHT_APPS_POSTWRIGHT_STREAM_UTF8_H_
#define POSTWRIGHT_APPS_POSTWRIGHT_STREAM_UTF8_H_

#include <boost/locale/encoding_utf.hpp>
#include <string>
#include <string_view>

namespace postwright {

// The wide form of `text`. Throws boost::locale::conv::conversion_error where it is not UTF-8.
inline std::wstring WideFromUtf8(std::string_view text) {
  using boost::locale::conv::stop;
  return boost::locale::conv::utf_to_utf<wchar_t>(text.data(), text.data() + text.size(), stop);
}

// The UTF-8 form of `text`; what is no character (half a surrogate pair) is left out.
inline std::string Utf8FromWide(const std::wstring& text) {
  return boost::locale::conv::utf_to_utf<char>(text);
}

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_POSTWRIGHT_STREAM_UTF8_H_
