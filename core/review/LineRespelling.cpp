#include "core/review/LineRespelling.h"

#include "core/parser/CompiledPattern.h"
#include "core/review/Digits.h"
#include "core/review/NumberWords.h"
#include "core/review/WordForms.h"

#include <postwright/Utils.h>

#include <algorithm>
#include <array>
#include <cwctype>

namespace postwright {

using namespace LabelLines;

namespace {

using boost::xpressive::regex_match;
using boost::xpressive::regex_search;
using boost::xpressive::wsmatch;
using boost::xpressive::wsregex;

// The patterns are for lines in upper case with single blanks.
struct Patterns {
  const wsregex isReadableBox = CompiledPattern(LR"(^(?:P[. ]?O[. ]? )?BOX \d+$)");
  const wsregex isFloor = CompiledPattern(FloorPattern());
  const wsregex isKeyWithSign = CompiledPattern(LR"(\b(KEY[. ]{0,2}# ?)[A-Z0-9-]+$)");
  const wsregex isNumberSign = CompiledPattern(LR"(^(?:NO\.? ?|# ?)(?=\d))");
  const wsregex isFraction = CompiledPattern(LR"(^(\d+)-(\d/\d)(?= ))");
  const wsregex isLettered = CompiledPattern(LR"(^(\d+)([A-Z])(?=[ .,]))");
  const wsregex isDirectionalUnit = CompiledPattern(LR"([^, ](,? ?)(?:# ?|KEY[. ] ?)[NSEW]$)");
  const wsregex isNumberBehind = CompiledPattern(LR"(^(.*[^ ,.]),? ?(?:NO\.? ?|# ?)(\d+)$)");
};

const Patterns& Pattern() {
  static const Patterns kPatterns;
  return kPatterns;
}

// A line that is respelled step by step, and what was done to it.
class LineRespeller {
 public:
  LineRespeller(std::wstring line, std::vector<RespelledWords>& respellings)
      : line_(std::move(line)), respellings_(respellings) {}

  std::wstring RespellBox() {
    const std::wstring upper = Upper();
    const std::size_t digits = upper.find_last_not_of(L"0123456789");
    if (!regex_match(upper, Pattern().isReadableBox) && digits != upper.npos) {
      Replace(0, line_.size(), L"PO BOX " + upper.substr(digits + 1), AddressRespellingBox);
    }
    return std::move(line_);
  }

  std::wstring RespellUnit() {
    RespellFloor();
    RespellKey();
    return std::move(line_);
  }

  std::wstring RespellHouse() {
    RespellFloor();
    RespellKey();
    ReplaceMatch(Pattern().isNumberSign, L"");
    RespellNumberInWords();
    RespellFraction();
    RespellLetter();
    RespellDirections();
    PartDirectionalUnit();
    return std::move(line_);
  }

  // "Calle Sol #288": in Puerto Rico the number may come last.
  std::wstring RespellHouseBehind() {
    wsmatch match;
    const std::wstring upper = Upper();
    if (regex_search(upper, match, Pattern().isNumberBehind)) {
      const std::wstring street = line_.substr(0, static_cast<std::size_t>(match.length(1)));
      Replace(0, line_.size(), match[2].str() + L" " + street, AddressRespellingNumberBehind);
    }
    return RespellHouse();
  }

 private:
  std::wstring Upper() const { return Utils::ToUpper(line_); }

  // Replaces [begin, begin + length) and notes it.
  void Replace(std::size_t begin, std::size_t length, const std::wstring& asked,
               AddressRespelling rule) {
    respellings_.push_back({rule, line_.substr(begin, length), asked});
    line_.replace(begin, length, asked);
  }

  // Replaces what fits a pattern of the house number.
  void ReplaceMatch(const wsregex& pattern, const std::wstring& asked) {
    wsmatch match;
    const std::wstring upper = Upper();
    if (regex_search(upper, match, pattern)) {
      Replace(static_cast<std::size_t>(match.position()), static_cast<std::size_t>(match.length()),
              asked, AddressRespellingHouseNumber);
    }
  }

  // "2ND FLOOR" as the grammar reads a floor: FL 2.
  void RespellFloor() {
    wsmatch match;
    const std::wstring upper = Upper();
    if (!regex_search(upper, match, Pattern().isFloor)) {
      return;
    }
    const std::wstring floor = match.str();
    const std::wstring number = IsDigit(floor.front())
                                    ? floor.substr(0, floor.find_first_not_of(L"0123456789"))
                                    : std::to_wstring(PlaceIn(kOrdinals, FirstWord(floor)));
    Replace(static_cast<std::size_t>(match.position()), static_cast<std::size_t>(match.length()),
            L"FL " + number, AddressRespellingUnit);
  }

  // After a street, the grammar takes KEY for a suffix and the number sign for the unit.
  void RespellKey() {
    wsmatch match;
    const std::wstring upper = Upper();
    if (regex_search(upper, match, Pattern().isKeyWithSign)) {
      Replace(static_cast<std::size_t>(match.position(1)),
              static_cast<std::size_t>(match.length(1)), L"KEY ", AddressRespellingUnit);
    }
  }

  void RespellNumberInWords() {
    const std::wstring word = FirstWord(Upper());
    if (const std::size_t number = PlaceIn(kCardinals, word); number > 0) {
      Replace(0, word.size(), std::to_wstring(number), AddressRespellingHouseNumber);
    }
  }

  // A fraction that is one character becomes three; one after a hyphen would be cut at its stroke.
  void RespellFraction() {
    constexpr std::array kFractions = {L"1/4", L"1/2", L"3/4"};
    const std::size_t at = line_.find_first_of(L"\u00BC\u00BD\u00BE");
    if (at != line_.npos && at > 0 && at < line_.find(L' ')) {
      const std::wstring whole(TrimEnd(line_.substr(0, at), L"-"));
      const std::wstring asked = whole + L" " + kFractions.at(line_[at] - L'\u00BC');
      Replace(0, at + 1, asked, AddressRespellingHouseNumber);
    }
    wsmatch match;
    const std::wstring upper = Upper();
    if (regex_search(upper, match, Pattern().isFraction)) {
      ReplaceMatch(Pattern().isFraction, match[1].str() + L" " + match[2].str());
    }
  }

  // "352A": after a hyphen the letter is known for the number's own, and not for an apartment's.
  void RespellLetter() {
    wsmatch match;
    const std::wstring upper = Upper();
    if (regex_search(upper, match, Pattern().isLettered)) {
      ReplaceMatch(Pattern().isLettered, match[1].str() + L"-" + match[2].str());
    }
  }

  // "12 North West Main St": of two directionals that are one, the grammar reads the first alone
  // (USPS Publication 28, section 233).
  void RespellDirections() {
    const std::wstring upper = Upper();
    const std::vector<std::wstring_view> words = WordsOf(upper);
    for (std::size_t at = 1; at + 1 < words.size(); ++at) {
      const std::wstring one = OneDirection(upper, words[at], words[at + 1]);
      if (!one.empty() && (StandsInFront(words, at) || StandsBehind(upper, words, at))) {
        const auto begin = static_cast<std::size_t>(words[at].data() - upper.data());
        const auto end =
            static_cast<std::size_t>(words[at + 1].data() - upper.data()) + words[at + 1].size();
        const std::size_t stop = end < line_.size() && line_[end] == L'.' ? 1 : 0;
        Replace(begin, end + stop - begin, one, AddressRespellingDirectional);
        return;
      }
    }
  }

  // NW of "NORTH WEST" and of "N. W."; "" of "S WEST", whose second word may be the street's name.
  static std::wstring OneDirection(const std::wstring& line, std::wstring_view first,
                                   std::wstring_view second) {
    const WordForms& forms = WordForms::Get();
    const std::wstring one(forms.Direction(first));
    const std::wstring other(forms.Direction(second));
    const bool alike = (first.size() == 1) == (second.size() == 1);
    const auto between = std::wstring_view(line).substr(
        static_cast<std::size_t>(first.data() - line.data()) + first.size(),
        static_cast<std::size_t>(second.data() - first.data()) - first.size());
    return alike && one.size() == 1 && other.size() == 1 && between.ends_with(L' ') &&
                   between.find(L',') == between.npos && !forms.Direction(one + other).empty()
               ? one + other
               : std::wstring();
  }

  // After the house number, and in front of a name: NORTH EAST ST is in the north.
  static bool StandsInFront(const std::vector<std::wstring_view>& words, std::size_t at) {
    const bool behindNumber =
        std::all_of(words.begin(), words.begin() + static_cast<std::ptrdiff_t>(at),
                    [](std::wstring_view word) { return HasDigit(word) || word.size() == 1; });
    const std::size_t name = at + 2;
    return behindNumber && name < words.size() && words[name] != L"TEMPLE" &&
           (!WordForms::Get().IsStreetWord(words[name]) || IsNamedBySuffix(words, name));
  }

  // LAKE of LAKE SHORE CT and RTE of RTE 9, and no suffix that ends the street.
  static bool IsNamedBySuffix(const std::vector<std::wstring_view>& words, std::size_t name) {
    const WordForms& forms = WordForms::Get();
    const auto behind = words.begin() + static_cast<std::ptrdiff_t>(name) + 1;
    const auto end = std::find_if(behind, words.end(), [&forms](std::wstring_view word) {
      return HasDigit(word) || !forms.Unit(word).empty();
    });
    const bool isRoad = behind != words.end() && IsDigit(behind->front());
    return isRoad || std::any_of(behind, end, [&forms](std::wstring_view word) {
             return !forms.Suffix(word).empty() || forms.IsOtherType(word);
           });
  }

  // After a suffix or a numbered road, and at the end or in front of a unit.
  static bool StandsBehind(const std::wstring& line, const std::vector<std::wstring_view>& words,
                           std::size_t at) {
    const WordForms& forms = WordForms::Get();
    const std::wstring_view before = words[at - 1];
    const std::size_t next = at + 2;
    const auto end =
        static_cast<std::size_t>(words[at + 1].data() - line.data()) + words[at + 1].size();
    const bool isLast = next == words.size() || line[end] == L',' ||
                        line.find(L'#', end) < line.find(words[next], end) ||
                        !forms.Unit(words[next]).empty();
    return at > 1 && isLast && (!forms.Suffix(before).empty() || HasDigit(before));
  }

  // "Oak St #E", "Oak St Key E": without a comma the letter is read as a directional of the street.
  void PartDirectionalUnit() {
    wsmatch match;
    const std::wstring upper = Upper();
    if (regex_search(upper, match, Pattern().isDirectionalUnit) &&
        (upper.find(L'#') != upper.npos ||
         EndsAsStreet(upper.substr(0, static_cast<std::size_t>(match.position(1)))))) {
      line_.replace(static_cast<std::size_t>(match.position(1)),
                    static_cast<std::size_t>(match.length(1)), L", ");
    }
  }

  static std::wstring FirstWord(const std::wstring& text) {
    return text.substr(0, text.find(L' '));
  }

  std::wstring line_;
  std::vector<RespelledWords>& respellings_;
};

bool IsLetter(wchar_t c) {
  return (c >= L'A' && c <= L'Z') || (c >= L'a' && c <= L'z');
}

// "352-A" of "352-A Main St"; "" where the line begins otherwise.
std::wstring_view LetteredNumber(std::wstring_view line) {
  const std::size_t hyphen = line.find_first_not_of(L"0123456789");
  const bool fits = hyphen != line.npos && hyphen > 0 && hyphen + 2 < line.size() &&
                    line[hyphen] == L'-' && IsLetter(line[hyphen + 1]) &&
                    std::iswalnum(static_cast<std::wint_t>(line[hyphen + 2])) == 0;
  return fits ? line.substr(0, hyphen + 2) : std::wstring_view();
}

}  // namespace

std::wstring Respell(const LabelPiece& piece, LineKind kind,
                     std::vector<RespelledWords>& respellings) {
  if (kind == LineKind::kBox) {
    return LineRespeller(std::wstring(TrimEnd(piece.typed, L" ,.;")), respellings).RespellBox();
  }
  LineRespeller line(std::wstring(TrimEnd(piece.typed, L" ,;")), respellings);
  switch (kind) {
    case LineKind::kHouse:
    case LineKind::kHouseInWords:
      return line.RespellHouse();
    case LineKind::kHouseBehind:
      return line.RespellHouseBehind();
    case LineKind::kUnit:
      return line.RespellUnit();
    default:
      return std::wstring(TrimEnd(piece.typed, L" ,;"));
  }
}

std::wstring LetterOfNumber(std::wstring_view line) {
  const std::wstring_view number = LetteredNumber(line);
  return number.empty() ? std::wstring()
                        : Utils::ToUpper(std::wstring(number.substr(number.size() - 1)));
}

std::wstring WithLetterApart(const std::wstring& line, std::vector<RespelledWords>& respellings) {
  const std::wstring number(LetteredNumber(line));
  if (number.empty() || !WordForms::Get().Direction(LetterOfNumber(line)).empty()) {
    return line;
  }
  std::wstring apart = number;
  apart[number.size() - 2] = L' ';
  const auto respelled =
      std::find_if(respellings.begin(), respellings.end(),
                   [&number](const RespelledWords& words) { return words.asked == number; });
  if (respelled == respellings.end()) {
    respellings.push_back({AddressRespellingHouseNumber, number, apart});
  } else {
    respelled->asked = apart;
  }
  return apart + line.substr(number.size());
}

void JoinLetter(std::wstring& line, const std::vector<RespelledWords>& respellings) {
  for (const RespelledWords& words : respellings) {
    const std::size_t blank = words.asked.find(L' ');
    const bool isApart = words.rule == AddressRespellingHouseNumber && blank != words.asked.npos &&
                         blank + 2 == words.asked.size() && !IsDigit(words.asked.back());
    if (isApart && Utils::ToUpper(line).starts_with(Utils::ToUpper(words.asked) + L" ")) {
      line.erase(blank, 1);
      return;
    }
  }
}

}  // namespace postwright
