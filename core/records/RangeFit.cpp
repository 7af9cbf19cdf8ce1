#include <postwright/RangeFit.h>

#include <postwright/Utils.h>

#include <algorithm>
#include <optional>
#include <utility>

namespace postwright {

namespace {

// The last run of digits, and what is on both sides of it.
struct Number {
  std::wstring prefix;
  std::optional<std::int64_t> value;  // nullopt for a text without digits, or with too many
  std::wstring letters;
  bool hasFraction = false;
};

bool IsDigit(wchar_t c) {
  return c >= L'0' && c <= L'9';
}

Number ReadNumber(const std::wstring& typed) {
  constexpr std::size_t kMostDigits = 9;
  std::wstring text = Utils::ToUpper(Utils::TrimString(typed));
  Number number;
  const std::size_t blank = text.find(L' ');
  if (blank != std::wstring::npos && text.find(L'/', blank) != std::wstring::npos) {
    number.hasFraction = true;
    text.resize(blank);
  }
  const auto last = std::find_if(text.rbegin(), text.rend(), IsDigit);
  const auto before = std::find_if_not(last, text.rend(), IsDigit);
  const std::wstring digits(before.base(), last.base());
  number.prefix.assign(text.begin(), before.base());
  number.letters.assign(last.base(), text.end());
  if (digits.empty()) {
    number.letters = std::exchange(number.prefix, {}) + number.letters;
  } else if (digits.size() <= kMostDigits) {
    number.value = std::stol(digits);
  }
  return number;
}

bool IsLetter(const std::wstring& text) {
  return text.size() == 1 && text[0] >= L'A' && text[0] <= L'Z';
}

// Whether letters after a number are between those of the ends, either of which may have none.
bool LettersFit(const Number& number, const Number& low, const Number& high) {
  if (low.letters == high.letters) {
    return number.letters == low.letters || (low.letters.empty() && IsLetter(number.letters));
  }
  return IsLetter(number.letters) && IsLetter(low.letters) && IsLetter(high.letters) &&
         low.letters <= number.letters && number.letters <= high.letters;
}

bool LiesBetween(const Number& number, const Number& low, const Number& high) {
  if (number.prefix != low.prefix || low.prefix != high.prefix || !LettersFit(number, low, high)) {
    return false;
  }
  if (!low.value || !high.value) {
    return !low.value && !high.value && !number.value;  // letters alone, A to F
  }
  return number.value && *low.value <= *number.value && *number.value <= *high.value &&
         !(number.hasFraction && *number.value == *high.value);
}

}  // namespace

RangeFit FitOfRange(const std::wstring& value, const std::wstring& low, const std::wstring& high,
                    AddressRangeType type) {
  const Number number = ReadNumber(value);
  if (!LiesBetween(number, ReadNumber(low), ReadNumber(high))) {
    return RangeFitOutside;
  }
  const bool hasSide = type == AddressRangeTypeOdd || type == AddressRangeTypeEven;
  if (hasSide && number.value && (*number.value % 2 == 0) != (type == AddressRangeTypeEven)) {
    return RangeFitParity;
  }
  return RangeFitInside;
}

}  // namespace postwright
