#include "service/http/FormFields.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace postwright::service {
namespace {

char Lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// The values of hexadecimal digits, -1 for any other byte.
constexpr std::array<int8_t, 256> kHexValues = [] {
  std::array<int8_t, 256> values = {};
  values.fill(-1);
  for (int8_t value = 0; value < 16; ++value) {
    values["0123456789ABCDEF"[value]] = values["0123456789abcdef"[value]] = value;
  }
  return values;
}();

int HexValue(char c) {
  return kHexValues[static_cast<unsigned char>(c)];
}

// Takes what stands in front of the first `mark`, or all, and the mark.
std::string_view TakeUpTo(char mark, std::string_view& text) {
  const std::string_view taken = text.substr(0, text.find(mark));
  text.remove_prefix(taken.size());
  text = text.empty() ? text : text.substr(1);
  return taken;
}

std::string Decode(std::string_view encoded) {
  std::string decoded(encoded.size(), '\0');
  char* end = decoded.data();
  for (size_t i = 0; i < encoded.size(); ++i) {
    const char c = encoded[i];
    if (c != '%' || i + 2 >= encoded.size()) {
      *end++ = c == '+' ? ' ' : c;
      continue;
    }
    const int high = HexValue(encoded[i + 1]);
    const int low = HexValue(encoded[i + 2]);
    const bool isEscape = high >= 0 && low >= 0;
    *end++ = isEscape ? static_cast<char>(high * 16 + low) : c;
    i += isEscape ? 2 : 0;
  }
  decoded.resize(static_cast<size_t>(end - decoded.data()));
  return decoded;
}

}  // namespace

FormFields::FormFields(std::string_view encoded) {
  while (!encoded.empty()) {
    const std::string_view field = TakeUpTo('&', encoded);
    std::string_view value = field;
    const std::string_view name = TakeUpTo('=', value);
    fields_.emplace_back(Decode(name), Decode(value));
  }
}

std::optional<std::string_view> FormFields::Find(std::string_view name) const {
  for (const auto& [key, value] : fields_) {
    if (EqualsIgnoringCase(key, name)) {
      return value;
    }
  }
  return std::nullopt;
}

bool EqualsIgnoringCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return Lower(x) == Lower(y); });
}

}  // namespace postwright::service
