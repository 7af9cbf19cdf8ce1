#ifndef POSTWRIGHT_CORE_REVIEW_NUMBERWORDS_H_
#define POSTWRIGHT_CORE_REVIEW_NUMBERWORDS_H_

#include <algorithm>
#include <array>
#include <string_view>

namespace postwright {

// Numbers in words, each in the place of its number: kCardinals[2] is TWO, kOrdinals[2] SECOND and
// kTens[2] TWENTY.
constexpr std::array<const wchar_t*, 21> kCardinals = {
    L"",         L"ONE",     L"TWO",     L"THREE",     L"FOUR",     L"FIVE",     L"SIX",
    L"SEVEN",    L"EIGHT",   L"NINE",    L"TEN",       L"ELEVEN",   L"TWELVE",   L"THIRTEEN",
    L"FOURTEEN", L"FIFTEEN", L"SIXTEEN", L"SEVENTEEN", L"EIGHTEEN", L"NINETEEN", L"TWENTY"};
constexpr std::array<const wchar_t*, 21> kOrdinals = {
    L"",           L"FIRST",      L"SECOND",     L"THIRD",     L"FOURTH",    L"FIFTH",
    L"SIXTH",      L"SEVENTH",    L"EIGHTH",     L"NINTH",     L"TENTH",     L"ELEVENTH",
    L"TWELFTH",    L"THIRTEENTH", L"FOURTEENTH", L"FIFTEENTH", L"SIXTEENTH", L"SEVENTEENTH",
    L"EIGHTEENTH", L"NINETEENTH", L"TWENTIETH"};
constexpr std::array<const wchar_t*, 10> kTens = {
    L"", L"", L"TWENTY", L"THIRTY", L"FORTY", L"FIFTY", L"SIXTY", L"SEVENTY", L"EIGHTY", L"NINETY"};

// Returns the place of `word` in one of them; 0 where it is in none.
template <std::size_t size>
std::size_t PlaceIn(const std::array<const wchar_t*, size>& numbers, std::wstring_view word) {
  const auto found = std::find(numbers.begin(), numbers.end(), word);
  return word.empty() || found == numbers.end() ? 0
                                                : static_cast<std::size_t>(found - numbers.begin());
}

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_REVIEW_NUMBERWORDS_H_
