#include "service/protocol/CutQuery.h"

#include <algorithm>
#include <charconv>
#include <cstdint>

namespace postwright::service {
namespace {

constexpr size_t kLongestReference = 16;  // %23x0010FFFF%3b

// Returns the text up to the first semicolon, escaped or not, and its length with that; no text
// where none ends a reference soon.
std::pair<std::string_view, size_t> TakeReference(std::string_view text) {
  text = text.substr(0, kLongestReference);
  std::pair<std::string_view, size_t> taken;
  for (const std::string_view end : {";", "%3b", "%3B"}) {
    if (const size_t at = text.find(end); at != std::string_view::npos) {
      text = text.substr(0, at);
      taken = {text, at + end.size()};
    }
  }
  return taken;
}

// Returns the number of `#x0A` and `%23x0A`; -1 for any other text.
int64_t CharacterOf(std::string_view name) {
  for (const std::string_view mark : {"#x", "%23x"}) {
    if (name.starts_with(mark)) {
      name.remove_prefix(mark.size());
      uint32_t character = 0;
      const auto [end, failure] =
          std::from_chars(name.data(), name.data() + name.size(), character, 16);
      return failure == std::errc() && end == name.data() + name.size() ? int64_t{character} : -1;
    }
  }
  return -1;
}

}  // namespace

std::string JoinCutReferences(std::string_view encoded) {
  std::string joined;
  joined.reserve(encoded.size());
  while (!encoded.empty()) {
    const size_t ampersand = std::min(encoded.find('&'), encoded.size());
    joined += encoded.substr(0, ampersand);
    encoded.remove_prefix(ampersand);
    if (encoded.empty()) {
      break;
    }
    encoded.remove_prefix(1);
    const auto [name, length] = TakeReference(encoded);
    const int64_t character = CharacterOf(name);
    const bool isControl = character >= 0 && character < ' ' && character != '\n' &&
                           character != '\r' && character != '\t';
    if (isControl) {
      joined += "%20";
      encoded.remove_prefix(length);
    } else {
      const bool isRest = character >= 0 || name == "lt" || name == "gt" || name == "quot";
      joined += isRest ? "%26" : "&";
    }
  }
  return joined;
}

}  // namespace postwright::service
