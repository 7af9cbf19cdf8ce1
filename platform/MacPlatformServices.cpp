#include <postwright/MacPlatformServices.h>

#include "common/SmallText.h"
#include "platform/UrlFetch.h"

#include <postwright/LogFormat.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <limits>
#include <optional>
#include <string_view>
#include <utility>

namespace postwright {

namespace {

// Converts `text` with `convert` (wcsrtombs or mbsrtowcs), all of it or nothing, into room for the
// longest result that `longest` elements can have.
template <typename To, typename From, typename Convert>
std::basic_string<To> ConvertWhole(const From* text, std::size_t longest, Convert convert) {
  std::basic_string<To> converted(longest, To());
  std::mbstate_t state = {};
  const std::size_t length = convert(converted.data(), &text, longest, &state);
  if (length > std::numeric_limits<std::int32_t>::max()) {  // SIZE_MAX for what cannot be converted
    return {};
  }
  converted.resize(length);
  return converted;
}

// For each byte, whether RFC 2396, section 2, has it among the reserved and unreserved characters.
constexpr std::array<bool, 256> kLegalInUrl = [] {
  constexpr std::string_view kLegal =
      ";/?:@&=+$,-_.!~*'()0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
  std::array<bool, 256> legal = {};
  for (const char c : kLegal) {
    legal[static_cast<unsigned char>(c)] = true;
  }
  return legal;
}();

std::string PercentEscape(const std::string& utf8) {
  std::string escaped;
  for (const char c : utf8) {
    if (kLegalInUrl[static_cast<unsigned char>(c)]) {
      escaped += c;
    } else {
      AppendEscape(c, escaped);
    }
  }
  return escaped;
}

// Builds the result beside the text: replacing in place would move the rest for each find.
void ReplaceAll(std::string& text, std::string_view from, std::string_view to) {
  std::string replaced;
  std::size_t done = 0;
  for (std::size_t at = 0; (at = text.find(from, done)) != std::string::npos;) {
    replaced.append(text, done, at - done).append(to);
    done = at + from.size();
  }
  if (done > 0) {
    text = std::move(replaced.append(text, done));
  }
}

// Makes safe the three character references of a printed request that a street is likely to hold;
// as they are, their ampersands would end the query parameter.
void ReplaceSpecialChars(std::string& escaped) {
  ReplaceAll(escaped, "&amp;", "%26amp%3b");
  ReplaceAll(escaped, "&apos;", "%26apos%3b");
  ReplaceAll(escaped, "&%23x09;", "%20");
}

// Returns the bytes that `text` stands for; empty where a percent sign has no two digits after it.
std::string PercentUnescape(const std::string& text) {
  std::string bytes;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] != '%') {
      bytes += text[at];
      continue;
    }
    const std::optional<char> byte = EscapeAt(text, at);
    if (!byte) {
      return {};
    }
    bytes += *byte;
    at += 2;
  }
  return bytes;
}

// The C library's UTF-8 goes beyond the code points that Unicode has.
bool IsUnicode(const std::wstring& text) {
  return std::all_of(text.begin(), text.end(), [](wchar_t c) { return c >= 0 && c <= 0x10FFFF; });
}

std::size_t Utf8Length(wchar_t c) {
  return c < 0x80 ? 1 : c < 0x800 ? 2 : c < 0x10000 ? 3 : 4;
}

std::size_t Utf16Length(wchar_t c) {
  return c < 0x10000 ? 1 : 2;
}

}  // namespace

std::string MacPlatformServices::UCS2ToUTF8(const std::wstring& text) {
  return UCS2ToUTF8(text.c_str());
}

std::string MacPlatformServices::UCS2ToUTF8(const wchar_t* text) {
  return text == nullptr
             ? std::string()
             : ConvertWhole<char>(text, std::wcslen(text) * MB_CUR_MAX, &std::wcsrtombs);
}

std::wstring MacPlatformServices::UTF8ToUCS2(const std::string& text) {
  return UTF8ToUCS2(text.c_str());
}

std::wstring MacPlatformServices::UTF8ToUCS2(const char* text) {
  return text == nullptr ? std::wstring()
                         : ConvertWhole<wchar_t>(text, std::strlen(text), &std::mbsrtowcs);
}

std::wstring MacPlatformServices::UrlEscape(const wchar_t* text) {
  if (text == nullptr || !IsUnicode(text)) {
    return {};
  }
  std::string escaped = PercentEscape(UCS2ToUTF8(text));
  ReplaceSpecialChars(escaped);
  return UTF8ToUCS2(escaped.c_str());
}

std::wstring MacPlatformServices::UrlEscape(const std::wstring& text) {
  return UrlEscape(text.c_str());
}

std::wstring MacPlatformServices::UrlUnescape(const wchar_t* text) {
  const std::wstring unescaped = UTF8ToUCS2(PercentUnescape(UCS2ToUTF8(text)).c_str());
  if (!IsUnicode(unescaped)) {
    return {};
  }
  std::size_t room = 1;
  for (const wchar_t c : unescaped) {
    room += Utf16Length(c);
  }
  std::size_t end = 0;
  while (end < unescaped.size() && Utf8Length(unescaped[end]) <= room) {
    room -= Utf8Length(unescaped[end]);
    ++end;
  }
  return unescaped.substr(0, end);
}

std::unique_ptr<std::vector<std::uint8_t>> MacPlatformServices::ReadUrl(const wchar_t* url) {
  return std::make_unique<std::vector<std::uint8_t>>(FetchUrl(UCS2ToUTF8(url), FetchLimits()));
}

std::int32_t MacPlatformServices::StringToInt(const wchar_t* text) {
  return text == nullptr ? 0 : static_cast<std::int32_t>(std::wcstol(text, nullptr, 10));
}

void MacPlatformServices::LogError(const wchar_t* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  LogMessage(format, arguments);
  va_end(arguments);
}

void MacPlatformServices::LogWarning(const wchar_t* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  LogMessage(format, arguments);
  va_end(arguments);
}

void MacPlatformServices::LogInfo(const wchar_t* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  LogMessage(format, arguments);
  va_end(arguments);
}

void MacPlatformServices::LogMessage(const wchar_t* format, va_list arguments) {
  std::wstring text = FormatLogMessage(format, arguments);
  if (text.empty()) {
    return;
  }
  text.pop_back();
  UCS2ToUTF8(text.c_str());  // and no further
}

}  // namespace postwright
