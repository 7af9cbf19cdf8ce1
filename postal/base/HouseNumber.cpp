#include "postal/base/HouseNumber.h"

#include <algorithm>
#include <charconv>

#include "common/AsciiText.h"

namespace postwright::postal {
namespace {

constexpr size_t kMostDigits = 9;

Parity ParityOfEnds(int64_t low, int64_t high) {
  return low % 2 != high % 2 ? Parity::Both : low % 2 == 0 ? Parity::Even : Parity::Odd;
}

}  // namespace

std::optional<HouseNumber> HouseNumber::Read(std::string_view text) {
  HouseNumber number;
  if (const size_t blank = text.find(' '); blank != std::string_view::npos) {
    number.fraction = true;
    text = text.substr(0, blank);
  }
  const auto last = std::find_if(text.rbegin(), text.rend(), IsDigit);
  const auto before = std::find_if_not(last, text.rend(), IsDigit);
  const size_t end = static_cast<size_t>(text.rend() - last);
  const size_t begin = static_cast<size_t>(text.rend() - before);
  if (end == begin || end - begin > kMostDigits) {
    return std::nullopt;
  }
  number.prefix = text.substr(0, begin);
  number.letters = text.substr(end);
  std::from_chars(text.data() + begin, text.data() + end, number.value);
  return number;
}

std::optional<NumberRange> NumberRange::Read(std::string_view low, std::string_view high,
                                             std::string_view parity) {
  auto first = HouseNumber::Read(low);
  auto second = HouseNumber::Read(high);
  if (!first || !second || first->prefix != second->prefix ||
      (first->letters != second->letters && first->value != second->value)) {
    return std::nullopt;
  }
  if (first->value > second->value || first->letters > second->letters) {
    std::swap(first, second);
  }
  const Parity ends = ParityOfEnds(first->value, second->value);
  const bool both = parity == "B" || ends == Parity::Both;
  return NumberRange{*first, *second, both ? Parity::Both : ends};
}

bool NumberRange::Holds(const HouseNumber& number) const {
  if (number.prefix != low.prefix || number.value < low.value || number.value > high.value) {
    return false;
  }
  if (low.letters != high.letters) {  // 115C to 115F
    return number.letters.size() == low.letters.size() && number.letters >= low.letters &&
           number.letters <= high.letters && !number.fraction;
  }
  if (parity != Parity::Both && (number.value % 2 == 0) != (parity == Parity::Even)) {
    return false;
  }
  if (!low.letters.empty()) {
    return number.letters == low.letters && !number.fraction;
  }
  return (number.letters.empty() || (number.letters.size() == 1 && AllLetters(number.letters))) &&
         !(number.fraction && number.value == high.value);
}

}  // namespace postwright::postal
