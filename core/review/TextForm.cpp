#include <postwright/TextForm.h>

#include "core/review/LabelWords.h"

#include <postwright/Utils.h>

#include <utf8proc.h>

#include <algorithm>
#include <vector>

namespace postwright::TextForm {

namespace {

bool IsBetween(wchar_t c, utf8proc_category_t first, utf8proc_category_t last) {
  const utf8proc_category_t category = utf8proc_category(static_cast<utf8proc_int32_t>(c));
  return category >= first && category <= last;
}

bool IsLetter(wchar_t c) {
  return IsBetween(c, UTF8PROC_CATEGORY_LU, UTF8PROC_CATEGORY_LO);
}

bool IsDigit(wchar_t c) {
  return IsBetween(c, UTF8PROC_CATEGORY_ND, UTF8PROC_CATEGORY_ND);
}

bool IsLetterOrNumber(wchar_t c) {
  return IsLetter(c) || IsBetween(c, UTF8PROC_CATEGORY_ND, UTF8PROC_CATEGORY_NO);
}

bool IsSign(wchar_t c) {
  return IsBetween(c, UTF8PROC_CATEGORY_PC, UTF8PROC_CATEGORY_PO);
}

bool IsBlank(wchar_t c) {
  return (c >= L'\t' && c <= L'\r') || c == L'\u0085' ||
         IsBetween(c, UTF8PROC_CATEGORY_ZS, UTF8PROC_CATEGORY_ZP);
}

// A line without what the form leaves out; a character past either end is none.
class PostalLine {
 public:
  explicit PostalLine(std::wstring_view line) : line_(line) {}

  std::wstring Write() {
    for (std::size_t at = 0; at < line_.size(); ++at) {
      const bool isSign = IsSign(line_[at]);
      if (IsBlank(line_[at]) || (isSign && !IsKept(at) && !JoinsWords(at))) {
        isParted_ = true;
      } else if (!isSign || IsKept(at)) {
        Append(line_[at]);
      }
    }
    return std::move(written_);
  }

 private:
  wchar_t At(std::size_t at) const { return at < line_.size() ? line_[at] : L'\0'; }

  void Append(wchar_t c) {
    if (isParted_ && !written_.empty()) {
      written_ += L' ';
    }
    isParted_ = false;
    written_ += c;
  }

  bool IsKept(std::size_t at) const {
    const wchar_t before = At(at - 1);
    const wchar_t after = At(at + 1);
    const bool within = IsLetterOrNumber(before) && IsLetterOrNumber(after);
    switch (line_[at]) {
      case L'#':
      case L'&':
        return true;
      case L'/':
        return within;
      case L'-':
        return within && (IsDigit(before) || IsDigit(after));
      case L'.':
        return IsDigit(before) && IsDigit(after);
      default:
        return false;
    }
  }

  // A letter that stands alone or between signs.
  bool IsInitial(std::size_t at) const {
    return IsLetter(At(at)) && !IsLetterOrNumber(At(at - 1)) && !IsLetterOrNumber(At(at + 1));
  }

  // Does the sign leave no gap: O'NEIL, N.W.?
  bool JoinsWords(std::size_t at) const {
    const wchar_t sign = line_[at];
    return sign == L'\'' || sign == L'\u2019' ||
           (sign == L'.' && IsInitial(at - 1) && IsInitial(at + 1));
  }

  std::wstring_view line_;
  std::wstring written_;
  bool isParted_ = false;
};

std::vector<std::wstring> LinesOf(std::wstring_view text, std::wstring_view breaks) {
  std::vector<std::wstring> lines;
  for (std::size_t begin = 0, end = 0; end != text.npos; begin = end + 1) {
    end = text.find_first_of(breaks, begin);
    lines.emplace_back(text.substr(begin, end - begin));
  }
  return lines;
}

// Lines that hold anything, without the blanks at their ends.
std::vector<std::wstring> FilledLinesOf(std::wstring_view text) {
  std::vector<std::wstring> filled;
  for (const std::wstring& line : LinesOf(text, L"\n\v\f\r\u0085\u2028\u2029")) {
    std::wstring trimmed = Utils::TrimString(line);
    if (!std::all_of(trimmed.begin(), trimmed.end(), IsBlank)) {
      filled.push_back(std::move(trimmed));
    }
  }
  return filled;
}

std::wstring Joined(const std::vector<std::wstring>& lines) {
  std::wstring text;
  for (const std::wstring& line : lines) {
    text += (&line == &lines.front() ? L"" : L"\n") + line;
  }
  return text;
}

// What is left where blanks and signs do not count.
template <typename Counts>
std::wstring Folded(std::wstring_view text, Counts counts) {
  std::wstring folded = Composed(text);
  std::erase_if(folded, [counts](wchar_t c) { return !counts(c); });
  return Utils::ToUpper(folded);
}

bool IsSameName(std::wstring_view one, std::wstring_view other) {
  const auto counts = [](wchar_t c) { return !IsBlank(c) && !IsSign(c); };
  return std::none_of(one.begin(), one.end(), IsDigit) &&
         std::none_of(other.begin(), other.end(), IsDigit) &&
         Folded(one, counts) == Folded(other, counts);
}

// Puts the lines of `typed` in the place of those of `corrected` while they are the same names.
template <typename CorrectedLine, typename TypedLine>
void PutNamesBack(CorrectedLine corrected, CorrectedLine end, TypedLine typed, TypedLine last) {
  for (; corrected != end && typed != last && IsSameName(*corrected, *typed);
       ++corrected, ++typed) {
    *corrected = *typed;
  }
}

}  // namespace

std::wstring Composed(std::wstring_view text) {
  return ComposedWord(text);
}

std::wstring Postal(std::wstring_view address) {
  std::vector<std::wstring> lines = LinesOf(address, L"\n");
  for (std::wstring& line : lines) {
    line = PostalLine(line).Write();
  }
  return Joined(lines);
}

std::wstring WithNamesAsTyped(std::wstring_view corrected, std::wstring_view typed) {
  std::vector<std::wstring> lines = LinesOf(corrected, L"\n");
  const std::vector<std::wstring> names = FilledLinesOf(typed);
  PutNamesBack(lines.begin(), lines.end(), names.begin(), names.end());
  PutNamesBack(lines.rbegin(), lines.rend(), names.rbegin(), names.rend());
  return Joined(lines);
}

bool SaysTheSame(std::wstring_view text, std::wstring_view other) {
  const auto counts = [](wchar_t c) {
    return IsLetterOrNumber(c) || IsBetween(c, UTF8PROC_CATEGORY_MN, UTF8PROC_CATEGORY_ME);
  };
  return Folded(text, counts) == Folded(other, counts);
}

}  // namespace postwright::TextForm
