#include "core/review/LabelLines.h"

#include <postwright/Utils.h>

#include <cwctype>

namespace postwright::LabelLines {

namespace {

constexpr std::wstring_view kLineBreaks = L"\n\r\v\f\u0085\u2028\u2029";
constexpr std::wstring_view kEdges = L" \t\u00A0\u2007\u202F\u3000";

// A slash with blanks on both sides separates lines: not in "C/O", not in "12 1/2".
bool IsCut(std::wstring_view text, std::size_t at) {
  constexpr std::wstring_view kCuts = L",;|\u2022\u00B7";
  if (text[at] == L'/') {
    return at > 0 && at + 1 < text.size() && IsBlank(text[at - 1]) && IsBlank(text[at + 1]);
  }
  return kCuts.find(text[at]) != kCuts.npos;
}

// Adds [begin, end) without the blanks at its ends, unless nothing is left of it.
void AddTrimmed(std::wstring_view text, std::size_t begin, std::size_t end, bool startsLine,
                std::vector<LabelPiece>& pieces) {
  while (begin < end && IsBlank(text[begin])) {
    ++begin;
  }
  while (begin < end && IsBlank(text[end - 1])) {
    --end;
  }
  if (begin < end) {
    LabelPiece piece;
    piece.begin = begin;
    piece.end = end;
    piece.startsLine = startsLine;
    pieces.push_back(std::move(piece));
  }
}

}  // namespace

std::vector<LabelPiece> LinesOf(std::wstring_view text) {
  std::vector<LabelPiece> lines;
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = std::min(text.find_first_of(kLineBreaks, begin), text.size());
    AddTrimmed(text, begin, end, true, lines);
    begin = end + 1;
  }
  return lines;
}

LabelPiece ReadPiece(std::wstring_view text, LabelPiece piece) {
  piece.typed.clear();
  for (const wchar_t c : text.substr(piece.begin, piece.end - piece.begin)) {
    if (!IsBlank(c)) {
      piece.typed += c;
    } else if (piece.typed.empty() || piece.typed.back() != L' ') {
      piece.typed += L' ';
    }
  }
  piece.upper = Utils::ToUpper(piece.typed);
  return piece;
}

std::vector<LabelPiece> CutAtCommas(std::wstring_view text, const LabelPiece& line) {
  std::vector<LabelPiece> pieces;
  std::size_t begin = line.begin;
  for (std::size_t at = line.begin; at <= line.end; ++at) {
    if (at == line.end || IsCut(text, at)) {
      AddTrimmed(text, begin, at, line.startsLine && pieces.empty(), pieces);
      begin = at + 1;
    }
  }
  for (LabelPiece& piece : pieces) {
    piece = ReadPiece(text, std::move(piece));
  }
  return pieces;
}

bool IsBlank(wchar_t c) {
  return kEdges.find(c) != kEdges.npos || kLineBreaks.find(c) != kLineBreaks.npos ||
         std::iswspace(static_cast<std::wint_t>(c)) != 0;
}

std::vector<std::wstring_view> WordsOf(std::wstring_view text) {
  const auto isWord = [](wchar_t c) {
    return c == L'\'' || std::iswalnum(static_cast<std::wint_t>(c)) != 0 || c > L'\u00BF';
  };
  std::vector<std::wstring_view> words;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const std::size_t begin = at;
    while (at < text.size() && isWord(text[at])) {
      ++at;
    }
    if (at > begin) {
      words.push_back(text.substr(begin, at - begin));
    }
  }
  return words;
}

std::wstring LettersAndDigits(std::wstring_view text) {
  std::wstring kept;
  for (const wchar_t c : text) {
    if (std::iswalnum(static_cast<std::wint_t>(c)) != 0) {
      kept += c;
    }
  }
  return Utils::ToUpper(kept);
}

std::wstring_view TrimEnd(std::wstring_view text, std::wstring_view characters) {
  const std::size_t last = text.find_last_not_of(characters);
  return last == text.npos ? std::wstring_view() : text.substr(0, last + 1);
}

std::wstring_view TrimStart(std::wstring_view text, std::wstring_view characters) {
  const std::size_t first = text.find_first_not_of(characters);
  return first == text.npos ? std::wstring_view() : text.substr(first);
}

}  // namespace postwright::LabelLines
