#include "postal/base/CandidateSpans.h"

#include <algorithm>
#include <map>
#include <tuple>

#include "common/AsciiText.h"
#include "postal/words/Lexicon.h"

namespace postwright::postal {
namespace {

bool ComesFirst(const HouseSpan& a, const HouseSpan& b) {
  return std::tie(a.prefix, a.low, a.high, a.span.low) <
         std::tie(b.prefix, b.low, b.high, b.span.low);
}

HouseSpan SpanOf(const KnownRange& known) {
  const NumberRange& range = known.range;
  return {
      {known.low, known.high, range.parity}, range.low.prefix, range.low.value, range.high.value};
}

Parity ParityOf(const HouseNumber& number) {
  return number.value % 2 == 0 ? Parity::Even : Parity::Odd;
}

HouseSpan SpanOf(const HouseNumber& number, const std::string& text) {
  return {{text, text, ParityOf(number)}, number.prefix, number.value, number.value};
}

// Widens `span` to one house more.
void TakeIn(HouseSpan& span, const HouseNumber& number, const std::string& text) {
  if (number.value < span.low) {
    span.low = number.value;
    span.span.low = text;
  }
  if (number.value > span.high) {
    span.high = number.value;
    span.span.high = text;
  }
}

// A unit's number, for an order in which 2 comes before 10 and 1A before 1B.
struct UnitNumber {
  std::string prefix;
  bool hasValue = false;
  int64_t value = 0;
  std::string letters;

  static UnitNumber Read(const std::string& text) {
    const auto number = HouseNumber::Read(text);
    return number ? UnitNumber{number->prefix, true, number->value, number->letters}
                  : UnitNumber{"", false, 0, text};
  }

  auto Key() const { return std::tie(prefix, hasValue, value, letters); }

  // By how much `next` is more than this; 0 where that says nothing.
  int64_t StepTo(const UnitNumber& next) const {
    if (prefix != next.prefix || hasValue != next.hasValue) {
      return 0;
    }
    if (letters == next.letters) {
      return next.value - value;
    }
    const bool isLetter = letters.size() == 1 && next.letters.size() == 1;
    return isLetter && value == next.value && next.letters[0] == letters[0] + 1 ? 1 : 0;
  }
};

struct Unit {
  std::string designator;
  std::string text;  // of its number
  UnitNumber number;

  auto Key() const { return std::tuple_cat(std::tie(designator), number.Key()); }
};

Unit ReadUnit(const std::string& unit) {
  const size_t blank = unit.rfind(' ');
  if (blank == std::string::npos) {
    // Some words are a unit by themselves: BSMT.
    const bool isNumber = HasDigit(unit) || unit.size() == 1;
    return {isNumber ? "" : unit, isNumber ? unit : "", UnitNumber::Read(isNumber ? unit : "")};
  }
  const std::string number = unit.substr(blank + 1);
  return {unit.substr(0, blank), number, UnitNumber::Read(number)};
}

Parity ParityOf(const UnitNumber& number, int64_t step) {
  return step != 2 ? Parity::Both : number.value % 2 == 0 ? Parity::Even : Parity::Odd;
}

// Returns where the run that begins at `begin` ends: every number, or every second one of three at
// least.
size_t EndOfRun(const std::vector<Unit>& units, size_t begin, int64_t* step) {
  const auto stepAt = [&](size_t i) {
    return i + 1 < units.size() && units[i].designator == units[i + 1].designator
               ? units[i].number.StepTo(units[i + 1].number)
               : 0;
  };
  *step = stepAt(begin);
  if (*step != 1 && (*step != 2 || stepAt(begin + 1) != 2)) {
    *step = 0;
    return begin + 1;
  }
  size_t end = begin + 1;
  while (stepAt(end - 1) == *step) {
    ++end;
  }
  return end;
}

}  // namespace

std::vector<HouseSpan> SpansOfHouses(const std::vector<KnownRange>& ranges,
                                     const std::vector<std::string>& numbers) {
  constexpr int64_t kBlock = 100;
  std::vector<HouseSpan> spans;
  std::transform(ranges.begin(), ranges.end(), std::back_inserter(spans),
                 [](const KnownRange& known) { return SpanOf(known); });
  std::map<std::tuple<std::string, int64_t, Parity>, HouseSpan> blocks;
  std::vector<HouseSpan> single;  // 12A and 12 1/2 are the end of no block
  for (const std::string& text : numbers) {
    const auto number = HouseNumber::Read(text);
    const auto holds = [&](const KnownRange& known) { return known.range.Holds(*number); };
    if (!number || std::any_of(ranges.begin(), ranges.end(), holds)) {
      continue;
    }
    if (!number->letters.empty() || number->fraction) {
      single.push_back(SpanOf(*number, text));
      continue;
    }
    const auto [block, isNew] = blocks.try_emplace(
        {number->prefix, number->value / kBlock, ParityOf(*number)}, SpanOf(*number, text));
    TakeIn(block->second, *number, text);
  }
  for (HouseSpan& span : single) {
    const auto block = blocks.find({span.prefix, span.low / kBlock, span.span.parity});
    if (block == blocks.end() || span.low < block->second.low || span.low > block->second.high) {
      spans.push_back(std::move(span));
    }
  }
  for (auto& [key, span] : blocks) {
    spans.push_back(std::move(span));
  }
  std::sort(spans.begin(), spans.end(), ComesFirst);
  const auto isSame = [](const HouseSpan& a, const HouseSpan& b) { return a.span == b.span; };
  spans.erase(std::unique(spans.begin(), spans.end(), isSame), spans.end());
  return spans;
}

std::vector<UnitSpan> SpansOfUnits(std::vector<std::string> texts) {
  std::sort(texts.begin(), texts.end());
  texts.erase(std::unique(texts.begin(), texts.end()), texts.end());
  std::vector<Unit> units;
  units.reserve(texts.size());
  std::transform(texts.begin(), texts.end(), std::back_inserter(units), ReadUnit);
  std::sort(units.begin(), units.end(),
            [](const Unit& a, const Unit& b) { return a.Key() < b.Key(); });
  std::vector<UnitSpan> spans;
  for (size_t begin = 0; begin < units.size();) {
    int64_t step = 0;
    const size_t end = EndOfRun(units, begin, &step);
    spans.push_back(
        {units[begin].designator,
         {units[begin].text, units[end - 1].text, ParityOf(units[begin].number, step)}});
    begin = end;
  }
  return spans;
}

}  // namespace postwright::postal
