#include "common/Encoding.h"

#include <array>
#include <boost/locale/utf.hpp>
#include <iterator>

namespace postwright {
namespace {

namespace utf = boost::locale::utf;
using Utf8 = utf::utf_traits<char>;

// Windows-1252, 0x80 to 0x9F.
constexpr std::array<char32_t, 32> kHighControls = {
    0x20AC, 0xFFFD, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0xFFFD, 0x017D, 0xFFFD, 0xFFFD, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0xFFFD, 0x017E, 0x0178};

void AppendUtf8(char32_t c, std::string& text) {
  Utf8::encode(c, std::back_inserter(text));
}

std::string DecodeUtf16(std::string_view bytes, bool isBigEndian) {
  constexpr char32_t kReplacement = 0xFFFD;
  const auto unitAt = [&](size_t i) -> char32_t {
    const auto byte = [&](size_t at) { return static_cast<unsigned char>(bytes[at]); };
    return isBigEndian ? byte(i) << 8U | byte(i + 1) : byte(i + 1) << 8U | byte(i);
  };
  const auto isSurrogate = [](char32_t unit) { return unit >= 0xD800 && unit < 0xE000; };
  std::string text;
  text.reserve(bytes.size());
  for (size_t i = 0; i + 1 < bytes.size(); i += 2) {
    char32_t c = unitAt(i);
    if (c < 0xDC00 && isSurrogate(c) && i + 3 < bytes.size() && unitAt(i + 2) >= 0xDC00 &&
        isSurrogate(unitAt(i + 2))) {
      i += 2;
      c = 0x10000 + ((c - 0xD800) << 10U) + (unitAt(i) - 0xDC00);
    }
    AppendUtf8(isSurrogate(c) ? kReplacement : c, text);
  }
  return text;
}

// Nearly all texts are: one look over the whole is the quickest.
bool IsAscii(std::string_view bytes) {
  unsigned char bits = 0;
  for (const char c : bytes) {
    bits |= static_cast<unsigned char>(c);
  }
  return bits < 0x80;
}

}  // namespace

bool IsUtf8(std::string_view bytes) {
  if (IsAscii(bytes)) {
    return true;
  }
  const char* at = bytes.data();
  const char* const end = at + bytes.size();
  while (at != end) {
    const utf::code_point c = Utf8::decode(at, end);
    if (c == utf::illegal || c == utf::incomplete) {
      return false;
    }
  }
  return true;
}

char32_t FromWindows1252(char byte) {
  const auto code = static_cast<unsigned char>(byte);
  return code >= 0x80 && code < 0xA0 ? kHighControls[code - 0x80] : code;
}

std::string DecodeDocument(std::string_view bytes) {
  const bool isBigEndian = bytes.starts_with("\xFE\xFF");
  return isBigEndian || bytes.starts_with("\xFF\xFE") ? DecodeUtf16(bytes.substr(2), isBigEndian)
                                                      : DecodeText(bytes);
}

std::string DecodeText(std::string_view bytes) {
  if (IsUtf8(bytes)) {
    return std::string(bytes);
  }
  std::string text;
  text.reserve(2 * bytes.size());
  for (const char c : bytes) {
    AppendUtf8(FromWindows1252(c), text);
  }
  return text;
}

}  // namespace postwright
