#include "service/text/AsciiText.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace postwright::service {
namespace {

// U+00C0 to U+017F, in rows of sixteen.
constexpr std::array<const char*, 192> kLatin = {
    // clang-format off
    "A", "A", "A", "A", "A", "A", "AE", "C", "E", "E", "E", "E", "I", "I", "I", "I",
    "D", "N", "O", "O", "O", "O", "O", " ", "O", "U", "U", "U", "U", "Y", "TH", "SS",
    "A", "A", "A", "A", "A", "A", "AE", "C", "E", "E", "E", "E", "I", "I", "I", "I",
    "D", "N", "O", "O", "O", "O", "O", " ", "O", "U", "U", "U", "U", "Y", "TH", "Y",
    "A", "A", "A", "A", "A", "A", "C", "C", "C", "C", "C", "C", "C", "C", "D", "D",
    "D", "D", "E", "E", "E", "E", "E", "E", "E", "E", "E", "E", "G", "G", "G", "G",
    "G", "G", "G", "G", "H", "H", "H", "H", "I", "I", "I", "I", "I", "I", "I", "I",
    "I", "I", "IJ", "IJ", "J", "J", "K", "K", "K", "L", "L", "L", "L", "L", "L", "L",
    "L", "L", "L", "N", "N", "N", "N", "N", "N", "N", "N", "N", "O", "O", "O", "O",
    "O", "O", "OE", "OE", "R", "R", "R", "R", "R", "R", "S", "S", "S", "S", "S", "S",
    "S", "S", "T", "T", "T", "T", "T", "T", "U", "U", "U", "U", "U", "U", "U", "U",
    "U", "U", "U", "U", "W", "W", "Y", "Y", "Y", "Z", "Z", "Z", "Z", "Z", "Z", "S",
    // clang-format on
};

// Takes one code point off the front of well-formed UTF-8.
char32_t TakeCodePoint(std::string_view& text) {
  const auto byte = [&](size_t i) { return static_cast<unsigned char>(text[i]); };
  const size_t length = byte(0) < 0x80 ? 1 : byte(0) < 0xE0 ? 2 : byte(0) < 0xF0 ? 3 : 4;
  if (length == 1 || length > text.size()) {
    const char32_t c = byte(0);
    text.remove_prefix(1);
    return c;
  }
  char32_t c = byte(0) & (0xFF >> (length + 1));
  for (size_t i = 1; i < length; ++i) {
    c = (c << 6) | (byte(i) & 0x3F);
  }
  text.remove_prefix(length);
  return c;
}

bool In(char32_t c, char32_t first, char32_t last) {
  return c >= first && c <= last;
}

// The ASCII form of a code point beyond ASCII; nullptr for a letter that has none.
const char* FoldBeyondLatin(char32_t c) {
  switch (c) {
    case 0x00BC:
      return " 1/4";
    case 0x00BD:
      return " 1/2";
    case 0x00BE:
      return " 3/4";
    case 0x2018:
    case 0x2019:
    case 0x02BC:
      return "'";
    case 0x2116:  // the numero sign
      return "#";
    case 0x00AA:  // ordinal indicators
    case 0x00BA:
    case 0xFEFF:
      return "";
    default:
      break;
  }
  if (In(c, 0x00C0, 0x017F)) {
    return kLatin[c - 0x00C0];
  }
  if (In(c, 0x02B0, 0x036F) || In(c, 0x200B, 0x200F)) {
    return "";  // modifier letters, such as the okina, combining marks, invisible signs
  }
  if (In(c, 0x2010, 0x2015)) {
    return "-";
  }
  if (c < 0x00C0 || In(c, 0x2000, 0x2BFF) || In(c, 0x3000, 0x3004) || In(c, 0xFE00, 0xFE0F) ||
      In(c, 0x1F000, 0x1FAFF)) {
    return " ";  // signs
  }
  return nullptr;
}

// What becomes of a sign that stands between `before` and `after` (blank at an end of the line).
enum class Sign { Kept, Dropped, Blank };

Sign Judge(char sign, char before, char after, bool initial) {
  switch (sign) {
    case '-':
      return IsAlnum(before) && IsAlnum(after) && (IsDigit(before) || IsDigit(after)) ? Sign::Kept
                                                                                      : Sign::Blank;
    case '/':
      return IsAlnum(before) && IsAlnum(after) ? Sign::Kept : Sign::Blank;
    case '.':
      if (IsDigit(before) && IsDigit(after)) {
        return Sign::Kept;
      }
      return initial ? Sign::Dropped : Sign::Blank;  // N.W. is one word, ST.LOUIS and J.DOE two
    case '\'':
    case '`':
      return Sign::Dropped;
    default:
      return Sign::Blank;
  }
}

// Says whether the comma at `at` stands inside a number, as in PO BOX 1,234.
bool PartsThousands(std::string_view text, size_t at) {
  const auto digitsFrom = [&](size_t from) {
    const std::string_view rest = text.substr(from);
    return std::find_if_not(rest.begin(), rest.end(), IsDigit) - rest.begin();
  };
  return at > 0 && IsDigit(text[at - 1]) && digitsFrom(at + 1) == 3;
}

}  // namespace

std::optional<std::string> FoldToAscii(std::string_view utf8) {
  std::string folded;
  folded.reserve(utf8.size());
  while (!utf8.empty()) {
    char32_t c = TakeCodePoint(utf8);
    if (In(c, 0xFF01, 0xFF5E)) {
      c -= 0xFEE0;  // full-width forms
    }
    if (c < 0x80) {
      const char plain = c < 0x20 || c == 0x7F ? ' ' : static_cast<char>(c);
      folded += plain >= 'a' && plain <= 'z' ? static_cast<char>(plain - 'a' + 'A') : plain;
    } else if (const char* form = FoldBeyondLatin(c)) {
      folded += form;
    } else {
      return std::nullopt;
    }
  }
  return folded;
}

Words SplitLine(std::string_view folded) {
  constexpr size_t kUsual = 8;
  Words words;
  words.reserve(folded.empty() ? 0 : kUsual);
  std::string word;
  const auto flush = [&] {
    if (!word.empty()) {
      words.push_back(std::move(word));
    }
    word.clear();
  };
  for (size_t i = 0; i < folded.size(); ++i) {
    const char c = folded[i];
    if (IsAlnum(c)) {
      word += c;
      continue;
    }
    if (c == ',' && PartsThousands(folded, i)) {
      continue;
    }
    if (c == '#' || c == '&') {
      flush();
      if (c == '&' || words.empty() || words.back() != "#") {
        words.emplace_back(c == '#' ? "#" : "AND");
      }
      continue;
    }
    const char before = i > 0 ? folded[i - 1] : ' ';
    const char after = i + 1 < folded.size() ? folded[i + 1] : ' ';
    const auto aloneAt = [&](size_t at) { return at >= folded.size() || !IsAlnum(folded[at]); };
    const bool initial = (i < 2 || aloneAt(i - 2)) && (!IsAlnum(after) || aloneAt(i + 2));
    switch (Judge(c, before, after, initial)) {
      case Sign::Kept:
        word += c;
        break;
      case Sign::Dropped:
        break;
      case Sign::Blank:
        flush();
        break;
    }
  }
  flush();
  return words;
}

std::string JoinWords(const Words& words) {
  return JoinWords(words.begin(), words.end());
}

std::string JoinWords(Words::const_iterator begin, Words::const_iterator end) {
  std::string joined;
  for (auto word = begin; word != end; ++word) {
    if (!joined.empty()) {
      joined += ' ';
    }
    joined += *word;
  }
  return joined;
}

bool AllDigits(std::string_view text) {
  return !text.empty() && std::all_of(text.begin(), text.end(), IsDigit);
}

bool HasDigit(std::string_view text) {
  return std::any_of(text.begin(), text.end(), IsDigit);
}

bool AllLetters(std::string_view text) {
  return !text.empty() && std::all_of(text.begin(), text.end(), IsUpper);
}

bool IsOrdinal(std::string_view word) {
  const size_t digits = std::find_if_not(word.begin(), word.end(), IsDigit) - word.begin();
  const std::string_view ending = word.substr(digits);
  return digits > 0 && (ending == "ST" || ending == "ND" || ending == "RD" || ending == "TH");
}

}  // namespace postwright::service
