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

std::string Decode(std::string_view encoded) {
  std::string decoded(encoded.size(), '\0');
  char* end = decoded.data();
  for (size_t i = 0; i < encoded.size(); ++i) {
    const bool escape = encoded[i] == '%' && i + 2 < encoded.size() &&
                        HexValue(encoded[i + 1]) >= 0 && HexValue(encoded[i + 2]) >= 0;
    if (escape) {
      *end++ = static_cast<char>(HexValue(encoded[i + 1]) * 16 + HexValue(encoded[i + 2]));
      i += 2;
    } else {
      *end++ = encoded[i] == '+' ? ' ' : encoded[i];
    }
  }
  decoded.resize(static_cast<size_t>(end - decoded.data()));
  return decoded;
}

}  // namespace

FormFields::FormFields(std::string_view encoded) {
  while (!encoded.empty()) {
    const size_t end = std::min(encoded.find('&'), encoded.size());
    const std::string_view field = encoded.substr(0, end);
    const size_t equals = std::min(field.find('='), field.size());
    fields_.emplace_back(Decode(field.substr(0, equals)),
                         Decode(field.substr(std::min(equals + 1, field.size()))));
    encoded.remove_prefix(std::min(end + 1, encoded.size()));
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
