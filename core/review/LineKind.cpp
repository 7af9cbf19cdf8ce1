#include "core/review/LineKind.h"

#include "core/parser/CompiledPattern.h"
#include "core/parser/Vocabulary.h"
#include "core/review/Digits.h"
#include "core/review/NumberWords.h"
#include "core/review/WordForms.h"

#include <algorithm>
#include <array>
#include <unordered_set>

namespace postwright {

using namespace LabelLines;

namespace {

using boost::xpressive::regex_search;
using boost::xpressive::wsmatch;
using boost::xpressive::wsregex;

constexpr std::size_t kLongestLine = 200;  // characters; a longer line is not a line of an address

// KEY and BOX are designators too, but a line of its own that begins with them is another thing.
std::wstring Designators() {
  std::wstring all = L"PMB";
  for (const Vocabulary::VocabularyRow& row : Vocabulary::NumberedUnits()) {
    const std::wstring standard = row.standard;
    if (standard != L"BOX" && standard != L"KEY") {
      all += L"|" + std::wstring(row.written);
    }
  }
  return L"(?:" + all + L")";
}

std::wstring PlainDesignators() {
  std::wstring all;
  for (const Vocabulary::VocabularyRow& row : Vocabulary::PlainUnits()) {
    all += (all.empty() ? L"" : L"|") + std::wstring(row.written);
  }
  return L"(?:" + all + L")";
}

// The patterns are for lines in upper case with single blanks.
struct Patterns {
  const std::wstring number = LR"([A-Z0-9-]*\d[A-Z0-9-]*)";
  const std::wstring floor = FloorPattern();
  const std::wstring unit = L"(?:" + floor + L"|" + Designators() +
                            LR"((?:\. ?| ?#|[ :-])(?:NO\.? ?|# ?)?(?:)" + number +
                            LR"(|[A-Z]{1,2})|)" + Designators() + LR"(\d[A-Z0-9-]*|# ?)" + number +
                            LR"(|# ?[A-Z]|)" + PlainDesignators() + L")";
  // Two letters after KEY are a word: Key West.
  const std::wstring key = LR"(KEY(?:\. ?| ?#|[ :-])(?:# ?)?(?:)" + number + LR"(|[A-Z]))";
  const std::wstring box =
      LR"((?:(?:P[. ]{0,2}O[. ]{0,2}|POST OFFICE )(?:BOX|DRAWER|LOCK ?BOX|CALLER|BIN)|POB|BOX|DRAWER|)"
      LR"(LOCK ?BOX)[ .:]*(?:NO\.? ?|NUMBER |# ?)?)";
  const std::wstring spanish =
      LR"((?:CALLE|CALLEJON|CARR(?:ETERA)?\.?|AVE(?:NIDA)?\.?|PASEO|CAMINO) )";
  const std::wstring house =
      LR"((?:(?:NO\.? ?|# ?)(?=\d))?(?:\d+(?:[- ]\d+/\d+|/\d+|-\d+|[-]?[\xBC-\xBE])?(?:-?[A-Z])?|)"
      LR"([NSEW] ?\d+ ?[NSEW] ?\d+))";

  const wsregex isUnit =
      CompiledPattern(L"^(?:" + unit + L"(?:,? " + unit + L"){0,2}|" + key + L")$");
  const wsregex isHouse = CompiledPattern(L"^" + house + LR"([,.]? (?=.*[A-Z].*$))");
  const wsregex isTelephone = CompiledPattern(LR"(^\(?\d{3}\)?[ .-]\d{3}[ .-]\d{4}\b)");
  const wsregex isBox = CompiledPattern(L"^" + box + LR"((\d+)$)");
  const wsregex isLetteredBox = CompiledPattern(L"^(?:" + box + number +
                                                LR"(|(?:P[. ]{0,2}O[. ]{0,2}|)"
                                                LR"(POST OFFICE )(?:BOX|DRAWER) #?[A-Z])$)");
  const wsregex isRoute = CompiledPattern(
      LR"(^(?:(?:R\.? ?R|R\.? ?F\.? ?D|RURAL (?:ROUTE|RTE|RT|DELIVERY)|H\.? ?C(?:\.? ?R)?|)"
      LR"(HIGHWAY CONTRACT(?: (?:ROUTE|RTE|RT))?|STAR (?:ROUTE|RTE|RT))[ .,-]*)"
      LR"((?:(?:ROUTE|RTE|NO\.?|\#)? ?\d+|[A-Z]? ?(?:BOX|BUZON)\b|$)|)"
      LR"((?:ROUTE|RTE|RT|R\.? ?D|S\.? ?R)\.?[ -]?\d+[A-Z]?,? (?:BOX|BUZON)\b))");
  const wsregex isMilitary = CompiledPattern(
      LR"(^(?:(?:P\.?S\.?C\.?|C\.?M\.?R\.?|UNIT)[ .#-]*\d+\b|(?:USS|USNS|USCGC) [A-Z]))");
  const wsregex isAside = CompiledPattern(LR"(^(?:(?:ATTN|ATTENTION|ATT|C ?/ ?O|CARE OF)\b|%))");
  const wsregex isGeneralDelivery = CompiledPattern(LR"(^GEN(?:ERAL|\.)? ?DEL(?:IVERY|\.)?$)");
  const wsregex isBlockHouse =
      CompiledPattern(L"^[A-Z]{1,2}-?\\d+[A-Z]? " + spanish + L"|^" + spanish +
                      LR"(.*# ?[A-Z]{1,2}-?\d+[A-Z]?$|^CARR(?:ETERA)?\.? \d+,? KM\b)");
  const wsregex isHouseBehind = CompiledPattern(L"^" + spanish + LR"(.*(?:\bNO\.? ?|# ?)\d+$)");
};

const Patterns& Pattern() {
  static const Patterns kPatterns;
  return kPatterns;
}

using Words = std::unordered_set<std::wstring>;

// The words that a company's name ends with.
bool IsCompanyWord(const std::wstring& word) {
  static const Words kWords = {
      L"ASSN",       L"ASSOC",     L"ASSOCIATES", L"ASSOCIATION", L"BANK",         L"BREWING",
      L"CHURCH",     L"CO",        L"COLLEGE",    L"COMPANY",     L"CORP",         L"CORPORATION",
      L"FOUNDATION", L"GROUP",     L"HOSPITAL",   L"INC",         L"INCORPORATED", L"LIMITED",
      L"LLC",        L"LLP",       L"LP",         L"LTD",         L"PC",           L"PLLC",
      L"SCHOOL",     L"UNIVERSITY"};
  return kWords.contains(word);
}

// A second number in a line of a street, in a place where neither a unit, a numbered street nor a
// highway has one: the first may belong to a name.
bool HasSecondNumber(const std::wstring& upper) {
  static const Words kRoads = {L"HIGHWAY", L"HWY",    L"ROUTE", L"RTE",        L"RT",
                               L"ROAD",    L"RD",     L"US",    L"SR",         L"CR",
                               L"FM",      L"I",      L"STATE", L"INTERSTATE", L"LOOP",
                               L"AVE",     L"AVENUE", L"ST",    L"CALLE",      L"COUNTY"};
  const std::vector<std::wstring_view> words = WordsOf(upper);
  for (std::size_t at = 2; at < words.size(); ++at) {
    const std::wstring before(words[at - 1]);
    LabelPiece pair;
    pair.upper = before + L" " + std::wstring(words[at]);
    const bool plain = words[at].find_first_not_of(L"0123456789") == std::wstring_view::npos;
    const bool sign = upper[static_cast<std::size_t>(words[at].data() - upper.data()) - 1] == L'#';
    if (plain && !sign && !HasDigit(before) && !kRoads.contains(before) &&
        KindOf(pair) != LineKind::kUnit) {
      return true;
    }
  }
  return false;
}

bool IsHouse(const std::wstring& upper) {
  const std::vector<std::wstring_view> words = WordsOf(upper);
  return regex_search(upper, Pattern().isHouse) && !regex_search(upper, Pattern().isTelephone) &&
         words.size() > 1 && !IsCompanyWord(std::wstring(words.back()));
}

// Number words are street names too: THREE RIVERS DR, ONE MILE RD. They are a house number where a
// street that is a number or has a directional follows, and ONE in front of most names.
bool IsHouseInWords(const std::wstring& upper) {
  const std::vector<std::wstring_view> words = WordsOf(upper);
  const bool hasOtherType =
      std::any_of(words.begin() + std::min<std::ptrdiff_t>(2, std::ssize(words)), words.end(),
                  [](std::wstring_view word) { return WordForms::Get().IsOtherType(word); });
  if (words.size() < 3 || PlaceIn(kCardinals, words[0]) == 0 ||
      (!hasOtherType && !EndsAsStreet(upper))) {
    return false;
  }
  return IsDigit(words[1].front()) || PlaceIn(kOrdinals, words[1]) > 0 ||
         !WordForms::Get().Direction(words[1]).empty() ||
         (words[0] == L"ONE" && words[1] != L"MILE");
}

}  // namespace

std::wstring FloorPattern() {
  return LR"((?:(?:\d+(?:ST|ND|RD|TH)|FIRST|SECOND|THIRD|FOURTH|FIFTH|SIXTH|SEVENTH|EIGHTH|NINTH|)"
         LR"(TENTH) (?:FLOOR|FLR|FL)\b\.?))";
}

LineKind KindOf(const LabelPiece& piece) {
  if (piece.upper.empty() || piece.upper.size() > kLongestLine) {
    return LineKind::kOther;
  }
  const std::wstring upper(TrimEnd(piece.upper, L" ,.;:"));
  const Patterns& patterns = Pattern();
  if (regex_search(upper, patterns.isAside)) {
    return LineKind::kAside;
  }
  if (regex_search(upper, patterns.isBox)) {
    return LineKind::kBox;
  }
  if (regex_search(upper, patterns.isLetteredBox)) {
    return LineKind::kLetteredBox;
  }
  if (regex_search(upper, patterns.isRoute)) {
    return LineKind::kRoute;
  }
  if (regex_search(upper, patterns.isGeneralDelivery)) {
    return LineKind::kGeneralDelivery;
  }
  if (regex_search(upper, patterns.isUnit)) {
    return LineKind::kUnit;
  }
  if (IsHouse(upper)) {
    return LineKind::kHouse;
  }
  if (regex_search(upper, patterns.isBlockHouse)) {
    return LineKind::kBlockHouse;
  }
  if (regex_search(upper, patterns.isHouseBehind)) {
    return LineKind::kHouseBehind;
  }
  if (regex_search(upper, patterns.isMilitary)) {
    return LineKind::kMilitary;
  }
  return IsHouseInWords(upper) ? LineKind::kHouseInWords : LineKind::kOther;
}

bool EndsAsStreet(const std::wstring& upper) {
  const std::vector<std::wstring_view> words = WordsOf(upper);
  if (words.empty()) {
    return false;
  }
  const auto isStreetWord = [](std::wstring_view word) {
    return WordForms::Get().IsStreetWord(word);
  };
  if (isStreetWord(words.back())) {
    return words.size() > 2 || !HasDigit(words.front());
  }
  return words.size() > 3 && std::any_of(words.begin() + 2, words.end(), isStreetWord);
}

bool EndsAsCompany(const std::wstring& upper) {
  const std::vector<std::wstring_view> words = WordsOf(upper);
  return !words.empty() && IsCompanyWord(std::wstring(words.back()));
}

std::size_t FindDelivery(const LabelPiece& piece) {
  for (std::size_t at = 0; at < piece.upper.size() && piece.upper.size() <= kLongestLine; ++at) {
    if (at > 0 && piece.upper[at - 1] != L' ') {
      continue;
    }
    LabelPiece rest;
    rest.upper = piece.upper.substr(at);
    const LineKind kind = KindOf(rest);
    const bool isPart = kind == LineKind::kOther || kind == LineKind::kAside ||
                        kind == LineKind::kHouseInWords || kind == LineKind::kHouseBehind ||
                        kind == LineKind::kBlockHouse;
    if (!isPart) {
      const bool unclear =
          kind == LineKind::kUnit || (kind == LineKind::kHouse && HasSecondNumber(rest.upper));
      return unclear ? piece.upper.npos : at;
    }
    if (IsDigit(piece.upper[at])) {
      break;  // a digit that belongs to the words in front
    }
  }
  return piece.upper.npos;
}

}  // namespace postwright
