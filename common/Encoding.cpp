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

// Mac OS Roman, 0x80 to 0xFF, with the euro sign that took the currency sign's place.
constexpr std::array<char32_t, 128> kMacRoman = {
    0x00C4, 0x00C5, 0x00C7, 0x00C9, 0x00D1, 0x00D6, 0x00DC, 0x00E1, 0x00E0, 0x00E2, 0x00E4, 0x00E3,
    0x00E5, 0x00E7, 0x00E9, 0x00E8, 0x00EA, 0x00EB, 0x00ED, 0x00EC, 0x00EE, 0x00EF, 0x00F1, 0x00F3,
    0x00F2, 0x00F4, 0x00F6, 0x00F5, 0x00FA, 0x00F9, 0x00FB, 0x00FC, 0x2020, 0x00B0, 0x00A2, 0x00A3,
    0x00A7, 0x2022, 0x00B6, 0x00DF, 0x00AE, 0x00A9, 0x2122, 0x00B4, 0x00A8, 0x2260, 0x00C6, 0x00D8,
    0x221E, 0x00B1, 0x2264, 0x2265, 0x00A5, 0x00B5, 0x2202, 0x2211, 0x220F, 0x03C0, 0x222B, 0x00AA,
    0x00BA, 0x03A9, 0x00E6, 0x00F8, 0x00BF, 0x00A1, 0x00AC, 0x221A, 0x0192, 0x2248, 0x2206, 0x00AB,
    0x00BB, 0x2026, 0x00A0, 0x00C0, 0x00C3, 0x00D5, 0x0152, 0x0153, 0x2013, 0x2014, 0x201C, 0x201D,
    0x2018, 0x2019, 0x00F7, 0x25CA, 0x00FF, 0x0178, 0x2044, 0x20AC, 0x2039, 0x203A, 0xFB01, 0xFB02,
    0x2021, 0x00B7, 0x201A, 0x201E, 0x2030, 0x00C2, 0x00CA, 0x00C1, 0x00CB, 0x00C8, 0x00CD, 0x00CE,
    0x00CF, 0x00CC, 0x00D3, 0x00D4, 0xF8FF, 0x00D2, 0x00DA, 0x00DB, 0x00D9, 0x0131, 0x02C6, 0x02DC,
    0x00AF, 0x02D8, 0x02D9, 0x02DA, 0x00B8, 0x02DD, 0x02DB, 0x02C7};

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

char32_t FromMacRoman(char byte) {
  const auto code = static_cast<unsigned char>(byte);
  return code < 0x80 ? code : kMacRoman[code - 0x80U];
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
