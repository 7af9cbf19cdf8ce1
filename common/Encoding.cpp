#include "common/Encoding.h"

#include <algorithm>
#include <array>

namespace postwright {
namespace {

// Windows-1252, 0x80 to 0x9F.
constexpr std::array<char32_t, 32> kHighControls = {
    0x20AC, 0xFFFD, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0xFFFD, 0x017D, 0xFFFD, 0xFFFD, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0xFFFD, 0x017E, 0x0178};

void AppendUtf8(char32_t c, std::string& text) {
  if (c < 0x80) {
    text += static_cast<char>(c);
  } else if (c < 0x800) {
    text += static_cast<char>(0xC0 | (c >> 6));
    text += static_cast<char>(0x80 | (c & 0x3F));
  } else {
    if (c < 0x10000) {
      text += static_cast<char>(0xE0 | (c >> 12));
    } else {
      text += static_cast<char>(0xF0 | (c >> 18));
      text += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
    }
    text += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    text += static_cast<char>(0x80 | (c & 0x3F));
  }
}

// Length of the well-formed sequence at the front of `bytes`, 0 where there is none.
size_t SequenceLength(std::string_view bytes) {
  const auto byte = [&](size_t i) { return static_cast<unsigned char>(bytes[i]); };
  const unsigned char lead = byte(0);
  const size_t length = lead < 0x80   ? 1
                        : lead < 0xC2 ? 0
                        : lead < 0xE0 ? 2
                        : lead < 0xF0 ? 3
                        : lead < 0xF5 ? 4
                                      : 0;
  if (length == 0 || length > bytes.size()) {
    return 0;
  }
  for (size_t i = 1; i < length; ++i) {
    if ((byte(i) & 0xC0) != 0x80) {
      return 0;
    }
  }
  const bool overlong = (lead == 0xE0 && byte(1) < 0xA0) || (lead == 0xF0 && byte(1) < 0x90);
  const bool surrogate = lead == 0xED && byte(1) > 0x9F;
  const bool beyond = lead == 0xF4 && byte(1) > 0x8F;
  return overlong || surrogate || beyond ? 0 : length;
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
  const auto isPlain = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
  for (;;) {
    const auto other = std::find_if_not(bytes.begin(), bytes.end(), isPlain);
    if (other == bytes.end()) {
      return true;
    }
    bytes.remove_prefix(static_cast<size_t>(other - bytes.begin()));
    const size_t length = SequenceLength(bytes);
    if (length == 0) {
      return false;
    }
    bytes.remove_prefix(length);
  }
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
    const auto byte = static_cast<unsigned char>(c);
    AppendUtf8(byte >= 0x80 && byte < 0xA0 ? kHighControls[byte - 0x80] : byte, text);
  }
  return text;
}

}  // namespace postwright
