#include "common/AsciiText.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "common/SmallText.h"

namespace postwright {
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

bool IsAscii(char c) {
  return static_cast<unsigned char>(c) < 0x80;
}

char FoldPlain(char ascii) {
  return ascii >= 'a' && ascii <= 'z'    ? static_cast<char>(ascii - 'a' + 'A')
         : ascii < 0x20 || ascii == 0x7F ? ' '
                                         : ascii;
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

// What becomes of a sign.
enum class Sign { Kept, Dropped, Blank };

// Judges the sign at `at` by what is around it; an end of the line counts as a blank.
Sign Judge(std::string_view line, size_t at) {
  const auto around = [&](size_t i) { return i < line.size() ? line[i] : ' '; };
  const char before = around(at - 1);
  const char after = around(at + 1);
  const bool isBetween = IsAlnum(before) && IsAlnum(after);
  switch (line[at]) {
    case '-':
      return isBetween && (IsDigit(before) || IsDigit(after)) ? Sign::Kept : Sign::Blank;
    case '/':
      return isBetween ? Sign::Kept : Sign::Blank;
    case '.': {
      if (IsDigit(before) && IsDigit(after)) {
        return Sign::Kept;
      }
      // N.W. is one word, ST.LOUIS and J.DOE two.
      const bool isInitial =
          !IsAlnum(around(at - 2)) && (!IsAlnum(after) || !IsAlnum(around(at + 2)));
      return isInitial ? Sign::Dropped : Sign::Blank;
    }
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
    const auto ascii = std::find_if_not(utf8.begin(), utf8.end(), IsAscii);
    const size_t before = folded.size();
    folded.append(utf8.begin(), ascii);
    std::transform(folded.begin() + before, folded.end(), folded.begin() + before, FoldPlain);
    utf8.remove_prefix(ascii - utf8.begin());
    if (utf8.empty()) {
      break;
    }
    char32_t c = TakeCodePoint(utf8);
    if (In(c, 0xFF01, 0xFF5E)) {
      folded += FoldPlain(static_cast<char>(c - 0xFEE0));  // full-width forms
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
      word.clear();
    }
  };
  for (size_t i = 0;; ++i) {
    const auto* const rest = folded.begin() + i;
    const size_t letters = std::find_if_not(rest, folded.end(), IsAlnum) - rest;
    word.append(rest, letters);
    i += letters;
    if (i == folded.size()) {
      break;
    }
    const char c = folded[i];
    if (c == ',' && PartsThousands(folded, i)) {
      continue;
    }
    const Sign sign = c == ' ' ? Sign::Blank : Judge(folded, i);
    if (sign == Sign::Blank) {
      flush();
    } else if (sign == Sign::Kept) {
      word += c;
    }
    if (c == '&' || (c == '#' && (words.empty() || words.back() != "#"))) {
      words.emplace_back(c == '#' ? "#" : "AND");
    }
  }
  flush();
  return words;
}

bool HasWords(std::string_view folded) {
  return std::any_of(folded.begin(), folded.end(),
                     [](char c) { return IsAlnum(c) || c == '#' || c == '&'; });
}

std::string JoinWords(const Words& words) {
  return JoinWords(words.begin(), words.end());
}

std::string JoinWords(Words::const_iterator begin, Words::const_iterator end) {
  std::string joined;
  joined.reserve(JoinedLength(begin, end));
  for (auto word = begin; word != end; ++word) {
    if (!joined.empty()) {
      joined += ' ';
    }
    joined += *word;
  }
  return joined;
}

size_t JoinedLength(Words::const_iterator begin, Words::const_iterator end) {
  size_t length = begin == end ? 0 : end - begin - 1;
  for (auto word = begin; word != end; ++word) {
    length += word->size();
  }
  return length;
}

std::string TidyLine(std::string_view folded) {
  char before = ' ';
  for (const char c : folded) {
    if (!IsAlnum(c) && (c != ' ' || before == ' ')) {
      return JoinWords(SplitLine(folded));
    }
    before = c;
  }
  return before == ' ' ? JoinWords(SplitLine(folded)) : std::string(folded);
}

std::string SingleBlanks(std::string_view folded) {
  std::string text(Trim(folded, " "));
  const auto end =
      std::unique(text.begin(), text.end(), [](char a, char b) { return a == ' ' && b == ' '; });
  text.erase(end, text.end());
  return text;
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

}  // namespace postwright
