#include "core/parser/CharacterClasses.h"

#include <string_view>

namespace postwright {

CharacterClasses::CharacterClasses() : facet_(std::use_facet<std::ctype<wchar_t>>(locale_)) {
  for (size_t code = 0; code < table_.size(); ++code) {
    table_[code] = Classify(static_cast<wchar_t>(code));
  }
}

uint8_t CharacterClasses::Classify(wchar_t c) const {
  if (!facet_.is(std::ctype_base::alnum, c) && c != L'_') {
    return c == L',' ? kNonWord | kComma : kNonWord;
  }
  uint8_t flags = kWord;
  if (facet_.is(std::ctype_base::digit, c)) {
    flags |= kDigit;
  }
  if (c >= L'A' && c <= L'Z') {
    flags |= kLetter;
  }
  if (std::wstring_view(L"NSWE").find(c) != std::wstring_view::npos) {
    flags |= kCompass;
  }
  return flags;
}

}  // namespace postwright
