#include "core/parser/UnitWords.h"

namespace postwright {

namespace {

using Words = std::vector<std::wstring>;

Words Combine(const Words& heads, const Words& tails) {
  Words combined;
  for (const std::wstring& head : heads) {
    for (const std::wstring& tail : tails) {
      combined.push_back(head + tail);
    }
  }
  return combined;
}

class UnitPattern {
 public:
  explicit UnitPattern(std::wstring_view pattern) : rest_(pattern) {}

  Words ReadSequence() {
    Words words = {L""};
    while (!rest_.empty() && rest_.front() != L')') {
      words = Combine(words, ReadItem());
    }
    return words;
  }

 private:
  // One letter or group with what may follow it, as the list of texts that it stands for.
  Words ReadItem() {
    constexpr std::wstring_view kGroup = L"(?:";
    Words item;
    if (rest_.starts_with(kGroup)) {
      rest_.remove_prefix(kGroup.size());
      item = ReadSequence();
      rest_.remove_prefix(1);
    } else {
      item = {std::wstring(1, rest_.front())};
      rest_.remove_prefix(1);
    }
    if (!rest_.empty() && (rest_.front() == L'?' || rest_.front() == L'*')) {
      const Words twice = rest_.front() == L'*' ? Combine(item, item) : Words();
      item.insert(item.end(), twice.begin(), twice.end());
      item.emplace_back();
      rest_.remove_prefix(1);
    }
    return item;
  }

  std::wstring_view rest_;
};

}  // namespace

std::vector<std::wstring> UnitWords(std::wstring_view pattern) {
  return UnitPattern(pattern).ReadSequence();
}

std::wstring_view StandardUnit(std::wstring_view answer) {
  return answer == L"SPACE" ? L"SPC" : answer;
}

}  // namespace postwright
