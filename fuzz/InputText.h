#ifndef POSTWRIGHT_FUZZ_INPUTTEXT_H_
#define POSTWRIGHT_FUZZ_INPUTTEXT_H_

#include <cstdint>
#include <locale>
#include <string>
#include <string_view>
#include <vector>

#include "common/Encoding.h"

namespace postwright::fuzz {

// Sets the same character locale as the programs, once.
inline void UseCharacterLocale() {
  [[maybe_unused]] static const std::locale previous =
      std::locale::global(std::locale(std::locale::classic(), "C.UTF-8", std::locale::ctype));
}

inline std::string_view TextOf(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

// Splits an input into at most `count` texts, at lines that hold only "---".
inline std::vector<std::string> PartsOf(std::string_view text, std::size_t count) {
  constexpr std::string_view kSeparator = "\n---\n";
  std::vector<std::string> parts;
  while (parts.size() + 1 < count) {
    const std::size_t at = text.find(kSeparator);
    parts.emplace_back(text.substr(0, at));
    text.remove_prefix(at == text.npos ? text.size() : at + kSeparator.size());
  }
  parts.emplace_back(text);
  return parts;
}

}  // namespace postwright::fuzz

#endif  // POSTWRIGHT_FUZZ_INPUTTEXT_H_
