#include "postal/words/Phrase.h"

#include <algorithm>

namespace postwright::postal {

size_t PhraseLength(const Words& words, size_t at, std::string_view phrase) {
  if (at >= words.size() || phrase.empty() || words[at][0] != phrase[0]) {
    return 0;  // nearly always
  }
  size_t length = 0;
  while (!phrase.empty()) {
    const size_t end = std::min(phrase.find(' '), phrase.size());
    if (at + length >= words.size() || words[at + length] != phrase.substr(0, end)) {
      return 0;
    }
    ++length;
    phrase.remove_prefix(std::min(end + 1, phrase.size()));
  }
  return length;
}

size_t LongestPhrase(const Words& words, size_t at, std::span<const std::string_view> phrases) {
  size_t longest = 0;
  for (const std::string_view phrase : phrases) {
    longest = std::max(longest, PhraseLength(words, at, phrase));
  }
  return longest;
}

bool IsNumberSign(std::string_view word) {
  return word == "#" || word == "NO" || word == "NUMBER" || word == "NUM";
}

size_t NumberSignLength(const Words& words, size_t at) {
  size_t end = at;
  while (end < words.size() && IsNumberSign(words[end])) {
    ++end;
  }
  return end - at;
}

}  // namespace postwright::postal
