#include <postwright/Utils.h>

#include <algorithm>
#include <cwctype>

namespace postwright::Utils {

std::wstring TrimString(const std::wstring& text) {
  constexpr const wchar_t* kTrimmed = L" \n\r\t";
  const size_t first = text.find_first_not_of(kTrimmed);
  if (first == std::wstring::npos) {
    return text;
  }
  return text.substr(first, text.find_last_not_of(kTrimmed) - first + 1);
}

std::wstring ToUpper(const std::wstring& text) {
  std::wstring upper = text;
  std::transform(upper.begin(), upper.end(), upper.begin(),
                 [](wchar_t c) { return static_cast<wchar_t>(std::towupper(c)); });
  return upper;
}

std::vector<std::wstring> SeparateStringToLines(const std::wstring& text) {
  std::vector<std::wstring> lines;
  if (text.empty()) {
    return lines;
  }
  size_t start = 0;
  for (size_t end; (end = text.find_first_of(L"\r\n", start)) != std::wstring::npos;) {
    lines.push_back(text.substr(start, end - start));
    start = end + (text.compare(end, 2, L"\r\n") == 0 ? 2 : 1);
  }
  lines.push_back(text.substr(start));
  return lines;
}

std::wstring JoinStrings(LineIterator begin, LineIterator end, const std::wstring& separator,
                         bool skipEmpty) {
  std::wstring joined;
  for (LineIterator element = begin; element != end; ++element) {
    if (skipEmpty && element->empty()) {
      continue;
    }
    if (!joined.empty()) {
      joined += separator;
    }
    joined += *element;
  }
  return joined;
}

std::wstring JoinStrings(const std::vector<std::wstring>& strings, const std::wstring& separator,
                         bool skipEmpty) {
  return JoinStrings(strings.begin(), strings.end(), separator, skipEmpty);
}

std::wstring NormalizeAddress(const std::wstring& text) {
  std::vector<std::wstring> kept;
  for (const std::wstring& line : SeparateStringToLines(text)) {
    std::wstring trimmed = TrimString(line);
    if (!trimmed.empty()) {
      kept.push_back(std::move(trimmed));
    }
  }
  return JoinStrings(kept, L"\n", false);
}

}  // namespace postwright::Utils
