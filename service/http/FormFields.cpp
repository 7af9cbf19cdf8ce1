#include "service/http/FormFields.h"

#include <algorithm>

namespace postwright::service {
namespace {

char Lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// The value of a hexadecimal digit, -1 for anything else.
int HexValue(char c) {
  if (c >= '0' && c <= '9') {
    return c - '0';
  }
  const char lower = Lower(c);
  return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
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
