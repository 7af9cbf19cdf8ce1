#include "common/SmallText.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace postwright {
namespace {

constexpr std::array<int8_t, 256> kHexValues = [] {
  std::array<int8_t, 256> values = {};
  values.fill(-1);
  for (int8_t value = 0; value < 16; ++value) {
    values[static_cast<unsigned char>(kUpperHexDigits[value])] = value;
    values[static_cast<unsigned char>(kLowerHexDigits[value])] = value;
  }
  return values;
}();

// The value of a hexadecimal digit, -1 for any other byte.
int HexValue(char c) {
  return kHexValues[static_cast<unsigned char>(c)];
}

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

void AppendEscape(char byte, std::string& text) {
  const auto value = static_cast<unsigned char>(byte);
  text += {'%', kUpperHexDigits[value >> 4U], kUpperHexDigits[value & 15U]};
}

std::optional<char> EscapeAt(std::string_view text, std::size_t at) {
  if (at >= text.size() || text.size() - at < 3 || text[at] != '%') {
    return std::nullopt;
  }
  const int high = HexValue(text[at + 1]);
  const int low = HexValue(text[at + 2]);
  return high < 0 || low < 0 ? std::nullopt : std::optional(static_cast<char>(high * 16 + low));
}

std::string EscapeQuery(std::string_view text) {
  std::string escaped;
  for (const char c : text) {
    if (IsPlain(c)) {
      escaped += c;
    } else {
      AppendEscape(c, escaped);
    }
  }
  return escaped;
}

std::string UnescapeQuery(std::string_view escaped) {
  std::string text(escaped.size(), '\0');
  char* end = text.data();
  for (size_t i = 0; i < escaped.size(); ++i) {
    if (const std::optional<char> byte = EscapeAt(escaped, i)) {
      *end++ = *byte;
      i += 2;
    } else {
      *end++ = escaped[i] == '+' ? ' ' : escaped[i];
    }
  }
  text.resize(static_cast<size_t>(end - text.data()));
  return text;
}

}  // namespace postwright
