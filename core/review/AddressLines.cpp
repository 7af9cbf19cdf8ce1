#include <postwright/AddressLines.h>

#include "core/review/Countries.h"
#include "core/review/Digits.h"
#include "core/review/LineRespelling.h"
#include "core/review/RunFinder.h"

#include <postwright/Utils.h>

#include <utility>

namespace postwright {

using namespace LabelLines;

namespace {

constexpr std::size_t kMostAddresses = 4;       // ends of an address that are looked at
constexpr std::size_t kLinesAbove = 5;          // lines above the last one that can belong to it
constexpr std::size_t kLongestOneLine = 1'000;  // characters of a label that is written in one line
constexpr std::wstring_view kSeparators = L" \t\u00A0,;|/\u2022\u00B7";

std::wstring FirstLineBreak(const std::wstring& text) {
  const std::size_t at = text.find_first_of(L"\r\n");
  if (at == text.npos) {
    return L"\n";
  }
  return text.substr(at, text.compare(at, 2, L"\r\n") == 0 ? 2 : 1);
}

// The address that ends with line `last` of `lines`, at `end`.
std::optional<AddressRun> FindInLines(const std::wstring& text,
                                      const std::vector<LabelPiece>& lines, std::size_t last,
                                      std::size_t end) {
  std::vector<LabelPiece> pieces;
  for (std::size_t line = last - std::min(last, kLinesAbove); line < last; ++line) {
    pieces.push_back(ReadPiece(text, lines[line]));
  }
  LabelPiece lastLine = lines[last];
  lastLine.end = end;
  for (LabelPiece& piece : CutAtCommas(text, lastLine)) {
    pieces.push_back(std::move(piece));
  }
  return RunFinder(text, std::move(pieces), false).Find();
}

// The addresses in a label of several lines; nothing but one of them is clear.
std::vector<AddressRun> FindInLabel(const std::wstring& text,
                                    const std::vector<LabelPiece>& lines) {
  std::vector<AddressRun> runs;
  std::size_t ends = 0;
  for (std::size_t line = 0; line < lines.size(); ++line) {
    const std::size_t end = EndOfZip(text, lines[line]);
    if (end == lines[line].begin) {
      continue;
    }
    if (++ends > kMostAddresses) {
      return {};
    }
    if (std::optional<AddressRun> run = FindInLines(text, lines, line, end)) {
      runs.push_back(std::move(*run));
    }
  }
  return runs;
}

// The addresses in a label of one line, in which anything may stand after the ZIP code.
std::vector<AddressRun> FindInOneLine(const std::wstring& text, const LabelPiece& line) {
  std::vector<AddressRun> runs;
  std::size_t tries = 0;
  for (std::size_t end = line.end; end > line.begin && tries < kMostAddresses; --end) {
    const bool endsNumber = IsDigit(text[end - 1]) && (end == text.size() || !IsDigit(text[end]));
    LabelPiece part = line;
    part.end = end;
    std::wstring_view front = std::wstring_view(text).substr(line.begin, end - line.begin);
    if (!endsNumber || TakeZip(front).empty()) {
      continue;
    }
    ++tries;
    if (std::optional<AddressRun> run = RunFinder(text, CutAtCommas(text, part), true).Find()) {
      end = run->begin + 1;
      runs.push_back(std::move(*run));
    }
  }
  return runs;
}

bool NamesForeignCountry(const std::wstring& text, const LabelPiece& line) {
  constexpr std::size_t kLongestLine = 200;
  if (line.end - line.begin > kLongestLine) {
    return false;
  }
  return IsForeignCountry(ReadPiece(text, line).upper);
}

}  // namespace

const char* CodeOfReason(LeftAloneReason reason) {
  switch (reason) {
    case LeftAloneRuralRoute:
      return "left-alone-rural-route";
    case LeftAloneForeignCountry:
      return "left-alone-foreign-country";
    case LeftAloneBox:
      return "left-alone-box";
    case LeftAloneGeneralDelivery:
      return "left-alone-general-delivery";
    case LeftAlonePuertoRico:
      return "left-alone-puerto-rico";
    default:
      return "";
  }
}

const char* TextOfReason(LeftAloneReason reason) {
  switch (reason) {
    case LeftAloneRuralRoute:
      return "A rural route, highway contract route or star route: it cannot be checked, and stays "
             "as it was typed.";
    case LeftAloneForeignCountry:
      return "An address outside the United States: it is not checked, and stays as it was typed.";
    case LeftAloneBox:
      return "A post-office box with a letter in its number: it cannot be checked, and stays as it "
             "was typed.";
    case LeftAloneGeneralDelivery:
      return "General Delivery: it has no number to be checked, and stays as it was typed.";
    case LeftAlonePuertoRico:
      return "An address of Puerto Rico by block or kilometre: it cannot be checked, and stays as "
             "it was "
             "typed.";
    default:
      return "";
  }
}

AddressLines::AddressLines(const std::wstring& text)
    : run_(text), question_(text), lineBreak_(FirstLineBreak(text)) {
  const std::vector<LabelPiece> lines = LinesOf(text);
  if (lines.empty()) {
    return;
  }
  if (NamesForeignCountry(text, lines.back())) {
    LeaveAlone(LeftAloneForeignCountry);
    return;
  }
  const bool oneLine = lines.size() == 1;
  if (oneLine && lines.front().end - lines.front().begin > kLongestOneLine) {
    return;
  }
  const std::vector<AddressRun> runs =
      oneLine ? FindInOneLine(text, lines.front()) : FindInLabel(text, lines);
  if (runs.size() != 1) {
    return;
  }
  if (runs.front().leftAlone != LeftAloneNot) {
    LeaveAlone(runs.front().leftAlone);
    return;
  }
  Take(text, runs.front(), oneLine);
}

void AddressLines::LeaveAlone(LeftAloneReason reason) {
  outcome_ = AddressLinesLeftAlone;
  reason_ = reason;
  question_.clear();
}

void AddressLines::Take(const std::wstring& text, const AddressRun& run, bool oneLine) {
  outcome_ = AddressLinesFound;
  above_ = text.substr(0, run.begin);
  run_ = text.substr(run.begin, run.end - run.begin);
  below_ = text.substr(run.end);
  between_ = Utils::JoinStrings(run.between, lineBreak_, false);
  question_ = run.question;
  respellings_ = run.respellings;
  cutsALine_ = oneLine;
}

std::wstring AddressLines::PutBack(const std::wstring& corrected) const {
  if (outcome_ == AddressLinesLeftAlone) {
    return run_;
  }
  if (outcome_ == AddressLinesUnclear) {
    return corrected;
  }
  std::vector<std::wstring> lines = Utils::SeparateStringToLines(corrected);
  if (!lines.empty()) {
    JoinLetter(lines.front(), respellings_);
  }
  if (!between_.empty() && !lines.empty()) {
    lines.insert(lines.end() - 1, between_);
  }
  const std::wstring address = Utils::JoinStrings(lines, lineBreak_, true);
  if (!cutsALine_) {
    return above_ + address + below_;
  }
  std::wstring above(TrimEnd(above_, kSeparators));
  std::wstring_view below = TrimStart(below_, kSeparators);
  above += above.find_last_not_of(L"\r\n \t") == above.npos ? L"" : lineBreak_;
  const bool parts = !below.empty() && below.find_first_of(L"\r\n") != 0;
  return above + address + (parts ? lineBreak_ : L"") + std::wstring(below);
}

}  // namespace postwright
