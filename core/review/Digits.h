#ifndef POSTWRIGHT_CORE_REVIEW_DIGITS_H_
#define POSTWRIGHT_CORE_REVIEW_DIGITS_H_

#include <algorithm>
#include <string_view>

namespace postwright {

// The ASCII digits: the postal service's numbers know no others.
inline bool IsDigit(wchar_t c) {
  return c >= L'0' && c <= L'9';
}
inline bool HasDigit(std::wstring_view text) {
  return std::any_of(text.begin(), text.end(), IsDigit);
}
inline bool IsNumber(std::wstring_view text) {  // digits alone, at least one
  return !text.empty() && std::all_of(text.begin(), text.end(), IsDigit);
}

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_REVIEW_DIGITS_H_
