#ifndef POSTWRIGHT_CORE_PARSER_CHARACTERCLASSES_H_
#define POSTWRIGHT_CORE_PARSER_CHARACTERCLASSES_H_

#include <array>
#include <cstdint>
#include <locale>

namespace postwright {

// What the address patterns can tell of one character, under the character locale of the moment in
// which the object was made: the same that the pattern engine takes when it compiles a pattern.
class CharacterClasses {
 public:
  static constexpr uint8_t kWord = 1;      // \w: a letter, a digit or "_"
  static constexpr uint8_t kNonWord = 2;   // \W
  static constexpr uint8_t kDigit = 4;     // \d
  static constexpr uint8_t kLetter = 8;    // [A-Z]
  static constexpr uint8_t kCompass = 16;  // [NSWE]
  static constexpr uint8_t kComma = 32;

  CharacterClasses();

  // The flags above that hold for `c`; exactly one of kWord and kNonWord always does.
  uint8_t Of(wchar_t c) const {
    const auto code = static_cast<uint32_t>(c);
    return code < table_.size() ? table_[code] : Classify(c);
  }

 private:
  uint8_t Classify(wchar_t c) const;

  std::locale locale_;  // keeps the facet alive
  const std::ctype<wchar_t>& facet_;
  std::array<uint8_t, 0x250> table_;  // Latin letters, the bulk of any label
};

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_PARSER_CHARACTERCLASSES_H_
