#include "postal/cut/SentLines.h"

#include <algorithm>

#include "common/SmallText.h"
#include "postal/cut/SentWords.h"
#include "postal/lines/BoxLine.h"
#include "postal/lines/StreetLine.h"
#include "postal/lines/UnitReader.h"
#include "postal/words/Lexicon.h"
#include "postal/words/Phrase.h"

namespace postwright::postal {
namespace {

bool IsOneOf(std::string_view word, std::initializer_list<std::string_view> words) {
  return std::find(words.begin(), words.end(), word) != words.end();
}

// c/o and attention lines (USPS Publication 28, section 213: above the delivery line).
bool IsAttentionLine(const Words& words) {
  static constexpr std::string_view kBeginnings[] = {"C/O", "C O", "ATTN", "ATTENTION", "CARE OF"};
  return LongestPhrase(words, 0, kBeginnings) > 0;
}

// N and E, read apart: N.E.
bool MakeOneDirection(std::string_view first, std::string_view second) {
  return IsOneOf(first, {"N", "S"}) && IsOneOf(second, {"E", "W"});
}

bool EndsInType(Words words) {
  const Lexicon& lexicon = Lexicon::Get();
  if (words.size() > 1 && !lexicon.Direction(words.back()).empty()) {
    words.pop_back();
  }
  return !lexicon.Suffix(words.back()).empty() || lexicon.IsOtherType(words.back());
}

// `street` was cut after a directional and a suffix, or is named by them: 12 E CT.
LinePlace PlaceBehindCut(const Words& street, const Words& words) {
  const Lexicon& lexicon = Lexicon::Get();
  const bool isWhole = lexicon.IsPlainType(lexicon.Suffix(street.back()));
  return !isWhole || EndsInType(words) || words[0] == "OF" ? LinePlace::Continues
                                                           : LinePlace::Unsure;
}

}  // namespace

std::optional<std::vector<SentLine>> SplitSentLines(std::string_view field) {
  std::vector<SentLine> lines;
  while (!field.empty()) {
    std::string_view text = field.substr(0, field.find('\n'));
    field.remove_prefix(std::min(text.size() + 1, field.size()));
    text = Trim(text, " \t\r");
    const auto folded = FoldToAscii(text);
    if (!folded) {
      return std::nullopt;
    }
    Words words = RestoreName(SplitLine(RestoreNumber(*folded)));
    if (!words.empty()) {
      lines.push_back({std::string(text), std::move(words)});
    }
  }
  return lines;
}

LinePlace PlaceBehind(const Words& street, const Words& words, std::string_view state) {
  if (IsAttentionLine(words)) {
    return LinePlace::Above;
  }
  if (ReadUnitLine(words) || ReadPostOfficeBox(street) ||
      (words.size() == 1 && MakeOneDirection(street.back(), words[0]))) {
    return LinePlace::Continues;
  }
  if (IsCutAtType(street)) {
    return PlaceBehindCut(street, words);
  }
  const std::optional<StreetLine> read = ReadStreet(street, state);
  const bool isLetter = words.size() == 1 && words[0].size() == 1;
  if (!read) {
    return LinePlace::Continues;
  }
  if (!read->units.empty()) {
    return isLetter ? LinePlace::Continues : LinePlace::Above;
  }
  if (read->suffix.empty()) {
    return !read->postdirectional.empty()  ? LinePlace::Unsure
           : !HasDigit(read->name.back())  ? LinePlace::Continues
           : isLetter || EndsInType(words) ? LinePlace::Unsure
                                           : LinePlace::Above;
  }
  if (isLetter) {
    return read->postdirectional.empty() ? LinePlace::Unit : LinePlace::Unsure;
  }
  if (!read->postdirectional.empty() || Lexicon::Get().IsPlainType(read->suffix)) {
    return LinePlace::Above;
  }
  return words.size() == 1 && Lexicon::Get().IsOtherType(words[0]) ? LinePlace::Continues
                                                                   : LinePlace::Unsure;
}

// A line of one suffix is the end of a street that was wrapped.
LinePlace PlaceOfNext(const Words& words) {
  if (HasDigit(words[0]) && IsDigit(words[0][0]) && !ReadUnitLine(words)) {
    return LinePlace::Unsure;  // a house number: which of them is the address?
  }
  const bool isRest = words.size() == 1 && !Lexicon::Get().Suffix(words[0]).empty();
  return ReadUnitLine(words) || isRest ? LinePlace::Continues : LinePlace::Above;
}

size_t FirstMilitaryLine(const std::vector<SentLine>& lines) {
  for (size_t first = 0; first < lines.size(); ++first) {
    Words words;
    for (size_t i = first; i < lines.size(); ++i) {
      Append(words, lines[i].words);
    }
    const bool reads = ReadMilitary(words).has_value();
    words.erase(words.begin());
    if (reads && !ReadMilitary(words)) {
      return first;
    }
  }
  return lines.empty() ? 0 : lines.size() - 1;
}

}  // namespace postwright::postal
