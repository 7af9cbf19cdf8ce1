#ifndef POSTWRIGHT_CORE_PARSER_SCANNEDTEXT_H_
#define POSTWRIGHT_CORE_PARSER_SCANNEDTEXT_H_

#include "core/parser/CharacterClasses.h"

#include <string_view>

namespace postwright {

// A text by what its characters are. There is nothing at a place outside it, before or after.
class ScannedText {
 public:
  explicit ScannedText(const CharacterClasses& classes) : classes_(classes) {}

  // Looks at `text` from now on; `text` must live as long.
  void Set(std::wstring_view text) { text_ = text; }
  std::wstring_view Whole() const { return text_; }
  std::wstring_view From(int at) const { return text_.substr(static_cast<size_t>(at)); }

  // Says whether the character at `at` is of one of the classes, and whether it is `c`.
  bool Is(int at, uint8_t flags) const {
    return Has(at) && (classes_.Of(text_[static_cast<size_t>(at)]) & flags) != 0;
  }
  bool Holds(int at, wchar_t c) const { return Has(at) && text_[static_cast<size_t>(at)] == c; }

  // Where a run that begins at `at` ends; `at` where none does.
  int SkipNonWord(int at) const { return Skip(at, CharacterClasses::kNonWord); }
  int SkipDigits(int at) const { return Skip(at, CharacterClasses::kDigit); }

 private:
  bool Has(int at) const { return at >= 0 && static_cast<size_t>(at) < text_.size(); }
  int Skip(int at, uint8_t flags) const {
    while (Is(at, flags)) {
      ++at;
    }
    return at;
  }

  const CharacterClasses& classes_;
  std::wstring_view text_;
};

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_PARSER_SCANNEDTEXT_H_
