#include "common/SmallText.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace postwright {
namespace {

constexpr std::string_view kHexDigits = "0123456789ABCDEF";

constexpr std::array<int8_t, 256> kHexValues = [] {
  std::array<int8_t, 256> values = {};
  values.fill(-1);
  for (int8_t value = 0; value < 16; ++value) {
    values[static_cast<unsigned char>(kHexDigits[value])] = value;
    values[static_cast<unsigned char>("0123456789abcdef"[value])] = value;
  }
  return values;
}();

char Lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// Unreserved characters, which no query needs to escape.
bool IsPlain(char c) {
  const char lower = Lower(c);
  return (lower >= 'a' && lower <= 'z') || (c >= '0' && c <= '9') || c == '-' || c == '.' ||
         c == '_' || c == '~';
}

}  // namespace

std::string_view Trim(std::string_view text, std::string_view blanks) {
  text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
  return text.substr(0, text.find_last_not_of(blanks) + 1);
}

bool EqualsIgnoringCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return Lower(x) == Lower(y); });
}

int HexValue(char c) {
  return kHexValues[static_cast<unsigned char>(c)];
}

std::string EscapeQuery(std::string_view text) {
  std::string escaped;
  for (const char c : text) {
    if (IsPlain(c)) {
      escaped += c;
    } else {
      const auto byte = static_cast<unsigned char>(c);
      escaped += '%';
      escaped += kHexDigits[byte >> 4U];
      escaped += kHexDigits[byte & 15U];
    }
  }
  return escaped;
}

std::string UnescapeQuery(std::string_view escaped) {
  std::string text(escaped.size(), '\0');
  char* end = text.data();
  for (size_t i = 0; i < escaped.size(); ++i) {
    const char c = escaped[i];
    if (c != '%' || i + 2 >= escaped.size()) {
      *end++ = c == '+' ? ' ' : c;
      continue;
    }
    const int high = HexValue(escaped[i + 1]);
    const int low = HexValue(escaped[i + 2]);
    const bool isEscape = high >= 0 && low >= 0;
    *end++ = isEscape ? static_cast<char>(high * 16 + low) : c;
    i += isEscape ? 2 : 0;
  }
  text.resize(static_cast<size_t>(end - text.data()));
  return text;
}

}  // namespace postwright
