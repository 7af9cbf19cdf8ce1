#include "core/review/LabelWords.h"

#include "core/review/Digits.h"

#include <utf8proc.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>

namespace postwright {

namespace {

bool IsLetterOrDigit(wchar_t c) {
  return IsDigit(c) || (c >= L'A' && c <= L'Z') || (c >= L'a' && c <= L'z');
}

// What a word is made of: letters, marks, digits and symbols. A character that Unicode knows
// nothing of is kept for one, so that it is missed where it gets lost.
bool IsWordCharacter(wchar_t c) {
  if (c < 0x80 && c >= 0) {
    return IsLetterOrDigit(c) || c == L'$' || c == L'+' || c == L'<' || c == L'=' || c == L'>';
  }
  switch (utf8proc_category(c)) {
    case UTF8PROC_CATEGORY_CC:
    case UTF8PROC_CATEGORY_CF:
    case UTF8PROC_CATEGORY_ZS:
    case UTF8PROC_CATEGORY_ZL:
    case UTF8PROC_CATEGORY_ZP:
    case UTF8PROC_CATEGORY_PC:
    case UTF8PROC_CATEGORY_PD:
    case UTF8PROC_CATEGORY_PS:
    case UTF8PROC_CATEGORY_PE:
    case UTF8PROC_CATEGORY_PI:
    case UTF8PROC_CATEGORY_PF:
    case UTF8PROC_CATEGORY_PO:
    case UTF8PROC_CATEGORY_SK:
      return false;
    default:
      return true;
  }
}

bool IsBlank(wchar_t c) {
  const utf8proc_category_t category = utf8proc_category(c);
  return category == UTF8PROC_CATEGORY_ZS || category == UTF8PROC_CATEGORY_ZL ||
         category == UTF8PROC_CATEGORY_ZP;
}

bool IsHyphen(wchar_t c) {
  return c == L'-' || c == 0x2010 || c == 0x2011 || c == 0x2013;  // the dashes that stand for one
}

bool IsApostrophe(wchar_t c) {
  return c == L'\'' || c == 0x2019 || c == 0x2BC || c == L'`';
}

// "½" as "1/2"; empty for what is not a fraction.
std::wstring SpelledFraction(wchar_t c) {
  constexpr wchar_t kFractionSlash = 0x2044;
  std::array<utf8proc_int32_t, 8> parts = {};
  int boundary = 0;
  if (c < 0x80 || utf8proc_category(c) != UTF8PROC_CATEGORY_NO) {
    return {};
  }
  const utf8proc_ssize_t count = utf8proc_decompose_char(
      c, parts.data(), parts.size(),
      static_cast<utf8proc_option_t>(UTF8PROC_COMPAT | UTF8PROC_DECOMPOSE), &boundary);
  std::wstring text;
  for (utf8proc_ssize_t i = 0; i < std::min<utf8proc_ssize_t>(count, parts.size()); ++i) {
    const auto part = static_cast<wchar_t>(parts[static_cast<std::size_t>(i)]);
    text += part == kFractionSlash ? L'/' : part;
  }
  return text.find(L'/') == std::wstring::npos ? std::wstring() : text;
}

// Runs Unicode's mapping over a word; a word that it does not take stays as it is.
std::wstring Map(std::wstring_view word, int options) {
  std::string utf8;
  for (const wchar_t c : word) {
    std::array<utf8proc_uint8_t, 4> bytes = {};
    const utf8proc_ssize_t count =
        utf8proc_codepoint_valid(c) ? utf8proc_encode_char(c, bytes.data()) : 0;
    if (count == 0) {
      return std::wstring(word);
    }
    utf8.append(reinterpret_cast<const char*>(bytes.data()), static_cast<std::size_t>(count));
  }
  utf8proc_uint8_t* mapped = nullptr;
  const utf8proc_ssize_t size =
      utf8proc_map(reinterpret_cast<const utf8proc_uint8_t*>(utf8.data()),
                   static_cast<utf8proc_ssize_t>(utf8.size()), &mapped,
                   static_cast<utf8proc_option_t>(UTF8PROC_STABLE | options));
  const std::unique_ptr<utf8proc_uint8_t, decltype(&std::free)> owner(mapped, &std::free);
  if (size == UTF8PROC_ERROR_NOMEM) {
    throw std::bad_alloc();
  }
  std::wstring text;
  for (utf8proc_ssize_t at = 0; at < size;) {
    utf8proc_int32_t c = 0;
    at += std::max<utf8proc_ssize_t>(1, utf8proc_iterate(mapped + at, size - at, &c));
    text += static_cast<wchar_t>(c);
  }
  return text;
}

// The form in which words are compared.
std::wstring Fold(std::wstring_view word) {
  std::wstring text(word);
  if (std::any_of(text.begin(), text.end(), [](wchar_t c) { return c >= 0x80 || c < 0; })) {
    text = Map(word, UTF8PROC_COMPOSE | UTF8PROC_CASEFOLD | UTF8PROC_IGNORE);
  }
  for (wchar_t& c : text) {
    c = c >= L'a' && c <= L'z' ? static_cast<wchar_t>(c - L'a' + L'A') : c;
  }
  return text;
}

// Reads the words from the first to the last.
class LabelReader {
 public:
  explicit LabelReader(std::wstring_view text) : text_(text) {}

  std::vector<LabelWord> Read() {
    while (at_ < text_.size()) {
      if (IsWordCharacter(text_[at_])) {
        ReadWord();
      } else {
        PassSign();
      }
    }
    return std::move(words_);
  }

 private:
  wchar_t At(std::size_t at) const { return at < text_.size() ? text_[at] : L'\0'; }

  void PassSign() {
    const wchar_t c = text_[at_++];
    if (c == L'\n' || c == L'\r') {
      at_ += c == L'\r' && At(at_) == L'\n' ? 1 : 0;
      ++line_;
      numberSign_ = comma_ = false;
    }
    glued_ = glued_ && c > L' ' && !IsBlank(c);
    numberSign_ = numberSign_ || c == L'#';
    comma_ = comma_ || c == L',' || c == L';' || c == L':' || c == L'(' || c == L')' || c == L'/';
  }

  // One word, with the signs that belong to it.
  void ReadWord() {
    const std::size_t begin = at_;
    const std::wstring fraction = SpelledFraction(text_[at_]);
    if (!fraction.empty()) {
      ++at_;
      Add(fraction, begin);
      return;
    }
    std::wstring text;
    while (at_ < text_.size()) {
      const wchar_t c = text_[at_];
      if (IsWordCharacter(c) && SpelledFraction(c).empty()) {
        text += c;
        ++at_;
      } else if (!text.empty() && utf8proc_category(c) == UTF8PROC_CATEGORY_CF) {
        ++at_;  // a soft hyphen or similar
      } else if (const wchar_t sign = SignWithin(begin)) {
        if (sign == L'-' && IsFraction(at_ + 1)) {
          break;  // 12-1/2
        }
        text += sign == L'\'' || sign == L',' ? std::wstring() : std::wstring(1, sign);
        ++at_;
      } else {
        break;
      }
    }
    AddFolded(text, begin);
  }

  // The sign at at_ where it belongs to the word that began at `begin`: '-', '/', '.', ',' or '\'';
  // else NUL.
  wchar_t SignWithin(std::size_t begin) const {
    const wchar_t c = text_[at_];
    const wchar_t before = text_[at_ - 1];
    const wchar_t behind = At(at_ + 1);
    if (at_ == begin || !IsWordCharacter(behind)) {
      return L'\0';
    }
    if (IsApostrophe(c)) {
      return L'\'';
    }
    if (IsHyphen(c)) {
      return IsDigit(before) || IsDigit(behind) ? L'-' : L'\0';
    }
    if (!IsDigit(before) || !IsDigit(behind)) {
      return L'\0';
    }
    if (c == L',') {
      const auto digits = [this](std::size_t i) { return IsDigit(At(at_ + i)); };
      return digits(1) && digits(2) && digits(3) && !digits(4) ? L',' : L'\0';
    }
    return c == L'/' || c == L'.' ? c : L'\0';
  }

  // Says whether digits, a stroke and digits begin at `at`.
  bool IsFraction(std::size_t at) const {
    constexpr std::size_t kLongest = 4;
    std::size_t end = at;
    while (IsDigit(At(end)) && end - at < kLongest) {
      ++end;
    }
    return end > at && At(end) == L'/' && IsDigit(At(end + 1));
  }

  void AddFolded(const std::wstring& written, std::size_t begin) {
    std::wstring text = Fold(written);
    constexpr std::size_t kZip = 5;
    constexpr std::size_t kAddOn = 4;
    const bool joined = text.size() == kZip + kAddOn && IsNumber(text);
    const bool hyphened = text.size() == kZip + 1 + kAddOn && text[kZip] == L'-' &&
                          IsNumber(std::wstring_view(text).substr(0, kZip)) &&
                          IsNumber(std::wstring_view(text).substr(kZip + 1));
    if (!(joined || hyphened) || at_ - begin != text.size()) {
      Add(std::move(text), begin);
      return;
    }
    const std::size_t end = at_;
    at_ = begin + kZip;
    Add(text.substr(0, kZip), begin);
    at_ = end;
    Add(text.substr(text.size() - kAddOn), end - kAddOn);
  }

  void Add(std::wstring text, std::size_t begin) {
    if (text.empty()) {
      return;
    }
    words_.push_back({std::move(text), line_, begin, at_, glued_, numberSign_, comma_});
    numberSign_ = comma_ = false;
    glued_ = true;
  }

  std::wstring_view text_;
  std::size_t at_ = 0;
  std::size_t line_ = 0;
  bool glued_ = false;
  bool numberSign_ = false;
  bool comma_ = false;
  std::vector<LabelWord> words_;
};

}  // namespace

std::vector<LabelWord> ReadLabelWords(std::wstring_view text) {
  return LabelReader(text).Read();
}

std::wstring ComposedWord(std::wstring_view word) {
  return Map(word, UTF8PROC_COMPOSE);
}

std::wstring WithoutSigns(std::wstring_view word) {
  std::wstring text(word);
  std::erase_if(text, [](wchar_t c) { return c == L'-' || c == L'/' || c == L'.'; });
  return text;
}

std::wstring WithoutAccents(std::wstring_view word) {
  if (std::all_of(word.begin(), word.end(), [](wchar_t c) { return c >= 0 && c < 0x80; })) {
    return std::wstring(word);
  }
  std::wstring text = Map(word, UTF8PROC_DECOMPOSE | UTF8PROC_STRIPMARK);
  for (wchar_t& c : text) {
    c = c >= L'a' && c <= L'z' ? static_cast<wchar_t>(c - L'a' + L'A') : c;
  }
  return text;
}

}  // namespace postwright
