#include <postwright/Utils.h>

#include <algorithm>
#include <cstdint>
#include <cwctype>
#include <string_view>

namespace postwright::Utils {

namespace {

bool IsBreak(wchar_t c) {
  return c == L'\n' || c == L'\r';
}

std::wstring_view Trimmed(std::wstring_view text) {
  const auto isKept = [](wchar_t c) { return c != L' ' && c != L'\t' && !IsBreak(c); };
  const auto first = std::find_if(text.begin(), text.end(), isKept);
  if (first == text.end()) {
    return text;
  }
  return {first, std::find_if(text.rbegin(), text.rend(), isKept).base()};
}

}  // namespace

std::wstring TrimString(const std::wstring& text) {
  return std::wstring(Trimmed(text));
}

// Of ASCII's letters only i depends on the locale, its capital has a dot in Turkish; the others
// need not be asked about one by one.
std::wstring ToUpper(const std::wstring& text) {
  std::wstring upper = text;
  for (wchar_t& c : upper) {
    if (c == L'i' || static_cast<uint32_t>(c) >= 0x80) {
      c = static_cast<wchar_t>(std::towupper(c));
    } else if (c >= L'a' && c <= L'z') {
      c -= L'a' - L'A';
    }
  }
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
  std::wstring normalized;
  normalized.reserve(text.size());
  for (auto begin = text.begin(); begin != text.end();) {
    const auto end = std::find_if(begin, text.end(), IsBreak);
    if (begin != end) {
      normalized.append(normalized.empty() ? 0 : 1, L'\n').append(Trimmed({begin, end}));
    }
    begin = end == text.end() ? end : end + 1;
  }
  return normalized;
}

}  // namespace postwright::Utils
