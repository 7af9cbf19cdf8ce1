#ifndef POSTWRIGHT_CORE_REVIEW_LABELLINES_H_
#define POSTWRIGHT_CORE_REVIEW_LABELLINES_H_

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace postwright {

// A stretch of a label's text: a line, or a part of one between two commas.
struct LabelPiece {
  std::size_t begin = 0;  // in the label's text, without the blanks and commas at its ends
  std::size_t end = 0;
  bool startsLine = true;  // the first of its line
  std::wstring typed;      // blanks of any kind reduced to one " " each
  std::wstring upper;      // the same in upper case, place by place
};

namespace LabelLines {

// The lines of `text` that hold anything, blanks at their ends left out: only `begin` and `end` are
// set. The line breaks are those of Utils and the rarer ones of word processors.
std::vector<LabelPiece> LinesOf(std::wstring_view text);

// Sets `typed` and `upper` of a piece of `text`.
LabelPiece ReadPiece(std::wstring_view text, LabelPiece piece);

// Cuts a line of `text` at its commas, semicolons, bars and free-standing slashes.
std::vector<LabelPiece> CutAtCommas(std::wstring_view text, const LabelPiece& line);

// Letters and digits are those of the character locale.
bool IsBlank(wchar_t c);
std::vector<std::wstring_view> WordsOf(std::wstring_view text);  // letters, digits and "'"
std::wstring LettersAndDigits(std::wstring_view text);           // in upper case, nothing else
std::wstring_view TrimEnd(std::wstring_view text, std::wstring_view characters);
std::wstring_view TrimStart(std::wstring_view text, std::wstring_view characters);

}  // namespace LabelLines
}  // namespace postwright

#endif  // POSTWRIGHT_CORE_REVIEW_LABELLINES_H_
