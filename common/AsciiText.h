#ifndef POSTWRIGHT_COMMON_ASCIITEXT_H_
#define POSTWRIGHT_COMMON_ASCIITEXT_H_

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace postwright {

// The letters of a standardised address are A to Z (USPS Publication 28, section 21): everything
// that the service compares or answers goes through here first.
//
//   FoldToAscii("Peña Blanca, 12½");        // "PENA BLANCA, 12 1/2"
//   SplitLine("p.o. box #12-A, Rm. 4");     // PO BOX # 12-A RM 4
//
// Pure functions, for any thread.

using Words = std::vector<std::string>;

// Returns `utf8` in upper case and ASCII: letters lose their accents, typographic quotes, dashes
// and blanks become plain ones, fractions are written out, other signs become blanks. nullopt where
// a letter has no Latin form: such a text is not an address that can be standardised.
std::optional<std::string> FoldToAscii(std::string_view utf8);

// Splits one folded line into words, without the punctuation that Publication 28 drops (section
// 222). Kept: `-` and `/` between letters and digits, `.` between digits (39.2 RD); a hyphen
// between letters separates two words. `#` is a word of its own, `&` becomes AND.
Words SplitLine(std::string_view folded);

// Says whether SplitLine finds any.
bool HasWords(std::string_view folded);

// Returns the words with one blank between them.
std::string JoinWords(const Words& words);
std::string JoinWords(Words::const_iterator begin, Words::const_iterator end);
size_t JoinedLength(Words::const_iterator begin, Words::const_iterator end);

// Returns JoinWords(SplitLine(folded)): most texts are that already.
std::string TidyLine(std::string_view folded);

// Returns `folded` with one blank in the place of several, and none at either end: a firm's name
// keeps its punctuation.
std::string SingleBlanks(std::string_view folded);

// ASCII alone, whatever the locale: a ZIP code has no other digits.
constexpr bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}
constexpr bool IsUpper(char c) {
  return c >= 'A' && c <= 'Z';
}
constexpr bool IsAlnum(char c) {
  return IsDigit(c) || IsUpper(c);
}
bool AllDigits(std::string_view text);  // false for the empty text
bool HasDigit(std::string_view text);
bool AllLetters(std::string_view text);  // A to Z; false for the empty text
bool IsOrdinal(std::string_view word);   // 2ND, 42ND

}  // namespace postwright

#endif  // POSTWRIGHT_COMMON_ASCIITEXT_H_
