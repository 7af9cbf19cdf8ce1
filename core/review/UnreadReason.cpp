#include <postwright/UnreadReason.h>

#include "core/review/Countries.h"
#include "core/review/LineKind.h"
#include "core/review/NumberWords.h"
#include "core/review/PlaceLine.h"
#include "core/review/StateNames.h"

#include <postwright/AddressParser.h>
#include <postwright/Utils.h>

#include <algorithm>
#include <array>

namespace postwright {

using namespace LabelLines;

namespace {

constexpr std::size_t kLongestLine = 200;  // characters
constexpr std::size_t kLastLines = 8;      // lines above the end of a label that are looked at

struct Row {
  UnreadCause cause;
  const char* code;
  const char* text;
};

constexpr Row kRows[] = {
    {UnreadCauseEmpty, "empty", "There is no text."},
    {UnreadCauseForeignCountry, "foreign-country",
     "The last line names a country other than the United States: the address is left alone."},
    {UnreadCauseShortZip, "zip-short",
     "The ZIP code has four digits; in this state it begins with 0. Put the 0 back."},
    {UnreadCauseNoZip, "zip-missing",
     "There is no ZIP code. Write its five digits after the state."},
    {UnreadCauseNoState, "state-missing",
     "There is no state in front of the ZIP code. Write its two letters there."},
    {UnreadCauseNumberInWords, "number-in-words",
     "The house number is written in words. Write it in figures."},
    {UnreadCauseNoHouseNumber, "number-missing",
     "There is no house number. The street's line begins with one, or is a box: PO BOX 12."},
    {UnreadCauseUnclear, "unread",
     "No address was found. Write the street, or the box, on one line and city, state and ZIP code "
     "on the next."},
};

const Row* FindRow(UnreadCause cause) {
  const auto* const row =
      std::find_if(std::begin(kRows), std::end(kRows),
                   [cause](const Row& candidate) { return candidate.cause == cause; });
  return row == std::end(kRows) ? nullptr : row;
}

// The states all of whose ZIP codes begin with 0, and those some of whose do (USPS: prefixes 005 to
// 098).
bool HasZerosInFront(const std::wstring& state) {
  constexpr std::array kStates = {L"AE", L"CT", L"MA", L"ME", L"NH",
                                  L"NJ", L"PR", L"RI", L"VI", L"VT"};
  return std::any_of(kStates.begin(), kStates.end(),
                     [&state](const wchar_t* known) { return state == known; });
}

bool EndsInForeignCountry(const std::wstring& upper) {
  const std::size_t comma = upper.find_last_of(L",;");
  const std::size_t digits = upper.find_last_of(L"0123456789");
  const std::size_t word = digits == upper.npos ? upper.npos : upper.find(L' ', digits);
  return IsForeignCountry(upper) || EndsInCanadianCode(TrimEnd(upper, L" .,")) ||
         (comma != upper.npos && IsForeignCountry(upper.substr(comma + 1))) ||
         (word != upper.npos && IsForeignCountry(upper.substr(word + 1)));
}

// The figure that the words in front of a street stand for, 0 where there are none, and how many
// characters they take. Numbers above a hundred are not written out on labels.
struct NumberInWords {
  std::size_t number = 0;
  std::size_t length = 0;
};

NumberInWords ReadNumber(std::wstring_view upper) {
  const std::size_t end = std::min(upper.find_first_of(L" -"), upper.size());
  const std::wstring_view first = upper.substr(0, end);
  const std::size_t ten = PlaceIn(kTens, first);
  if (ten == 0) {
    return {PlaceIn(kCardinals, first), end};
  }
  const std::size_t next = std::min(end + 1, upper.size());
  const std::size_t nextEnd = std::min(upper.find(L' ', next), upper.size());
  const std::size_t one = PlaceIn(kCardinals, upper.substr(next, nextEnd - next));
  return one >= 1 && one <= 9 ? NumberInWords{10 * ten + one, nextEnd}
                              : NumberInWords{10 * ten, end};
}

}  // namespace

// What can be wrong, in the order in which a person would mend it: the last line first.
UnreadReason::UnreadReason(const std::wstring& text) {
  std::vector<LabelPiece> lines = LinesOf(text);
  if (lines.empty()) {
    cause_ = UnreadCauseEmpty;
    return;
  }
  if (lines.size() > kLastLines) {
    lines.erase(lines.begin(), lines.end() - kLastLines);
  }
  std::erase_if(lines, [](const LabelPiece& line) { return line.end - line.begin > kLongestLine; });
  for (LabelPiece& line : lines) {
    line = ReadPiece(text, std::move(line));
  }
  if (!lines.empty() && EndsInForeignCountry(lines.back().upper)) {
    cause_ = UnreadCauseForeignCountry;
    return;
  }
  if (!AddressParser::GetInstance()->Parse(text).zip.empty()) {
    return;
  }
  cause_ = UnreadCauseNoZip;
  if (!LookAtZip(text, lines)) {
    LookAtStreet(text, lines);
  }
}

// Sets the cause where state and ZIP code are not both there.
bool UnreadReason::LookAtZip(const std::wstring& text, const std::vector<LabelPiece>& lines) {
  for (auto line = lines.rbegin(); line != lines.rend(); ++line) {
    const std::wstring_view digits = TrimEnd(line->upper, L" .,");
    const std::size_t letter = digits.find_last_not_of(L"0123456789");
    const std::wstring_view front =
        TrimEnd(digits.substr(0, letter == digits.npos ? 0 : letter + 1), L" .,");
    std::wstring_view rest = line->upper;
    const bool hasZip = !TakeZip(rest).empty();
    const std::wstring state = FindStateAtEnd(hasZip ? TrimEnd(rest, L" ,.;:()-") : front).code;
    if (hasZip) {
      const bool ownLine = TrimEnd(rest, L" ").empty() && line + 1 != lines.rend() &&
                           !FindStateAtEnd(TrimEnd((line + 1)->upper, L" ,.")).code.empty();
      cause_ = state.empty() && !ownLine ? UnreadCauseNoState : UnreadCauseUnclear;
      return cause_ == UnreadCauseNoState;
    }
    const std::size_t begin = digits.size() - (letter == digits.npos ? 0 : letter + 1);
    if (begin == 4 && HasZerosInFront(state)) {
      cause_ = UnreadCauseShortZip;
      const std::wstring zip(digits.substr(digits.size() - 4));
      const std::size_t at = text.rfind(zip, line->end - 1);
      proposal_ = text.substr(0, at) + L"0" + text.substr(at);
      return true;
    }
  }
  return true;
}

// State and ZIP code are there: the street's line is at fault.
void UnreadReason::LookAtStreet(const std::wstring& text, const std::vector<LabelPiece>& lines) {
  bool hasStreet = false;
  for (auto line = lines.rbegin(); line != lines.rend(); ++line) {
    const LineKind kind = KindOf(*line);
    hasStreet = hasStreet || (kind != LineKind::kOther && kind != LineKind::kAside &&
                              kind != LineKind::kUnit && kind != LineKind::kHouseInWords);
    const NumberInWords words = ReadNumber(line->upper);
    if (words.number > 0 && words.length < line->upper.size() && !hasStreet &&
        (EndsAsStreet(line->upper) || lines.size() == 1 ||
         line->upper.find(L',') != std::wstring::npos)) {
      cause_ = UnreadCauseNumberInWords;
      proposal_ = text.substr(0, line->begin) + std::to_wstring(words.number) +
                  text.substr(line->begin + words.length);
      return;
    }
  }
  cause_ = hasStreet ? UnreadCauseUnclear : UnreadCauseNoHouseNumber;
}

const char* UnreadReason::GetCode() const {
  const Row* row = FindRow(cause_);
  return row == nullptr ? "" : row->code;
}

const char* UnreadReason::GetText() const {
  const Row* row = FindRow(cause_);
  return row == nullptr ? "" : row->text;
}

}  // namespace postwright
