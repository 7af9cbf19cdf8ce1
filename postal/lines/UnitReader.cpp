#include "postal/lines/UnitReader.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "postal/words/Lexicon.h"
#include "postal/words/Phrase.h"

namespace postwright::postal {
namespace {

// A unit that ends a line: the words it takes there and what they become.
struct Unit {
  size_t length = 0;
  Words standard;
};

// Says whether a word can be the number of a unit: 4, 4B, B, B-12, two letters that mean nothing
// else.
bool IsUnitNumber(const std::string& word) {
  const Lexicon& lexicon = Lexicon::Get();
  return word != "#" &&
         (HasDigit(word) || word.size() == 1 ||
          (word.size() == 2 && lexicon.Suffix(word).empty() && lexicon.Direction(word).empty()));
}

// Says whether a number is written in two words: APT 4 B, APT B 4.
bool IsSplitNumber(const std::string& first, const std::string& second) {
  return (AllDigits(first) && second.size() == 1 && AllLetters(second)) ||
         (first.size() == 1 && AllLetters(first) && AllDigits(second));
}

// Says whether a plain unit may also be the last word of a street's name.
bool MayEndName(std::string_view standard) {
  static constexpr std::string_view kWords[] = {"FRNT", "LOWR", "REAR", "SIDE", "UPPR"};
  return std::find(std::begin(kWords), std::end(kWords), standard) != std::end(kWords);
}

bool EndsStreet(const std::string& word) {
  const Lexicon& lexicon = Lexicon::Get();
  return lexicon.IsPlainType(lexicon.Suffix(word)) || !lexicon.Direction(word).empty();
}

bool EndsRoad(const std::string& word) {
  return EndsStreet(word) || AllDigits(word);
}

// "PRIVATE MAILBOX 234" is written "PMB 234" (section 284).
void ShortenMailbox(Words& words, size_t from) {
  static constexpr std::string_view kPhrases[] = {"PRIVATE MAILBOX", "PRIVATE MAIL BOX"};
  size_t kept = from;
  for (size_t at = from; at < words.size(); ++at, ++kept) {
    const size_t length = LongestPhrase(words, at, kPhrases);
    const bool isMailbox = length > 0 && at + length < words.size();
    at += isMailbox ? length - 1 : 0;
    if (isMailbox) {
      words[kept] = "PMB";
    } else if (kept != at) {
      words[kept] = std::move(words[at]);
    }
  }
  words.resize(kept);
}

// How much of what stands in front of a number is a designator, APT and STE of APT4B and STE-209; 0
// where it is none.
size_t DesignatorLength(std::string_view front) {
  const std::string_view word = front.ends_with('-') ? front.substr(0, front.size() - 1) : front;
  return word.size() > 1 && (!Lexicon::Get().NumberedUnit(word).empty() || word == "PH")
             ? word.size()
             : 0;
}

// APT4B, STE-209, PH1: splits designators from their numbers.
void SplitDesignators(Words& words, size_t from) {
  Words split;
  for (size_t at = from; at < words.size(); ++at) {
    std::string& word = words[at];
    const size_t digits = std::find_if(word.begin(), word.end(), IsDigit) - word.begin();
    const size_t letters =
        digits < word.size() ? DesignatorLength(std::string_view(word).substr(0, digits)) : 0;
    if (letters > 0) {
      split.push_back(word.substr(0, letters));
      word.erase(0, digits);
    }
    split.push_back(std::move(word));
  }
  words.resize(from);
  std::move(split.begin(), split.end(), std::back_inserter(words));
}

// The number of a floor, 2 of 2ND and SECOND; empty for another word.
std::string FloorNumber(const std::string& word) {
  static constexpr std::string_view kWords[] = {"FIRST", "SECOND",  "THIRD",  "FOURTH", "FIFTH",
                                                "SIXTH", "SEVENTH", "EIGHTH", "NINTH",  "TENTH"};
  if (IsOrdinal(word)) {
    return word.substr(0, word.size() - 2);
  }
  const auto* const found = std::find(std::begin(kWords), std::end(kWords), word);
  return found == std::end(kWords) ? std::string() : std::to_string(found - std::begin(kWords) + 1);
}

// Looks at the end of words[begin, end).
class LastUnit {
 public:
  LastUnit(const Words& words, size_t begin, size_t end)
      : words_(words), begin_(begin), end_(end) {}

  Unit Read() const {
    for (const auto read : {&LastUnit::Box, &LastUnit::Numbered, &LastUnit::NumberedWithDirection,
                            &LastUnit::Floor, &LastUnit::Plain}) {
      if (Unit unit = (this->*read)(); unit.length > 0) {
        return unit;
      }
    }
    return {};
  }

 private:
  size_t Size() const { return end_ - begin_; }
  const std::string& FromEnd(size_t n) const { return words_[end_ - n]; }

  Unit Box() const {
    static constexpr std::string_view kPhrases[] = {"PO BOX", "P O BOX", "POB"};
    constexpr size_t kLongestPhrase = 3;
    size_t signs = 0;
    while (signs + 2 < Size() && IsNumberSign(FromEnd(signs + 2))) {
      ++signs;
    }
    for (size_t phrase = 1; phrase <= kLongestPhrase; ++phrase) {
      const size_t length = phrase + signs + 1;
      if (length <= Size() && IsUnitNumber(FromEnd(1)) && !IsNumberSign(FromEnd(1)) &&
          LongestPhrase(words_, end_ - length, kPhrases) == phrase) {
        return {length, {"PO", "BOX", FromEnd(1)}};
      }
    }
    return {};
  }

  // A designator, perhaps a number sign, and a number of one or two words.
  Unit Numbered() const {
    if (Size() < 2 || !IsUnitNumber(FromEnd(1))) {
      return {};
    }
    const bool split = Size() >= 3 && IsSplitNumber(FromEnd(2), FromEnd(1));
    for (const size_t numberLength : {size_t{1}, size_t{2}}) {
      if (numberLength == 2 && !split) {
        break;
      }
      size_t before = numberLength + 1;
      while (before < Size() && IsNumberSign(FromEnd(before)) && !Designator(before + 1).empty()) {
        ++before;
      }
      if (before <= Size() && !Designator(before).empty()) {
        Words standard = {std::string(Designator(before))};
        standard.insert(standard.end(), words_.begin() + (end_ - numberLength),
                        words_.begin() + end_);
        return {before, std::move(standard)};
      }
    }
    return {};
  }

  // The standard form of the designator `n` words from the end. KEY is a street type as well, and
  // one with a letter is a unit after a street or a numbered road alone.
  std::string_view Designator(size_t n) const {
    const std::string& word = FromEnd(n);
    if (word == "#") {
      return "#";
    }
    const bool isKey = word == "KEY" && !HasDigit(FromEnd(1));
    if (isKey && !(n == 2 && FromEnd(1).size() == 1 && IsBehindRoad(n))) {
      return "";
    }
    return Lexicon::Get().NumberedUnit(word);
  }

  // Says whether the words in front of the last `n` end a road: ST, a number, or after a name any
  // other suffix.
  bool IsBehindRoad(size_t n) const {
    return Size() > n && (EndsRoad(FromEnd(n + 1)) ||
                          (Size() > n + 1 && !Lexicon::Get().Suffix(FromEnd(n + 1)).empty()));
  }

  // "2ND FLOOR", "SECOND FLOOR".
  Unit Floor() const {
    if (Size() < 2 || Lexicon::Get().NumberedUnit(FromEnd(1)) != "FL" ||
        FloorNumber(FromEnd(2)).empty()) {
      return {};
    }
    return {2, {"FL", FloorNumber(FromEnd(2))}};
  }

  // "STE 250 NORTH".
  Unit NumberedWithDirection() const {
    const std::string_view direction =
        Size() < 3 ? std::string_view() : Lexicon::Get().Direction(FromEnd(1));
    if (direction.empty() || !HasDigit(FromEnd(2)) ||
        Lexicon::Get().NumberedUnit(FromEnd(3)).empty()) {
      return {};
    }
    return {
        3,
        {std::string(Lexicon::Get().NumberedUnit(FromEnd(3))), FromEnd(2), std::string(direction)}};
  }

  // A designator that needs no number: "REAR", "PH 4".
  Unit Plain() const {
    for (const size_t length : {size_t{1}, size_t{2}}) {
      if (Size() < length || (length == 2 && !HasDigit(FromEnd(1)))) {
        break;
      }
      const std::string_view standard = Lexicon::Get().PlainUnit(FromEnd(length));
      if (standard.empty()) {
        continue;
      }
      const bool behindStreet = Size() > length && EndsStreet(FromEnd(length + 1));
      const bool behindUnit = LastUnit(words_, begin_, end_ - length).Numbered().length > 0;
      if (behindStreet || behindUnit || begin_ == 0 || (length == 1 && !MayEndName(standard))) {
        Words words = {std::string(standard)};
        words.insert(words.end(), words_.begin() + (end_ - length + 1), words_.begin() + end_);
        return {length, std::move(words)};
      }
    }
    return {};
  }

  const Words& words_;
  size_t begin_;
  size_t end_;
};

}  // namespace

Words TakeUnits(Words& words, size_t kept) {
  ShortenMailbox(words, kept);
  SplitDesignators(words, kept);
  Words units;
  while (words.size() > kept) {
    Unit last = LastUnit(words, kept, words.size()).Read();
    if (last.length == 0) {
      break;
    }
    if (last.standard.size() == 2 && last.standard[0] == "FL" && IsOrdinal(last.standard[1])) {
      last.standard[1].resize(last.standard[1].size() - 2);  // "FLOOR 2ND"
    }
    std::move(last.standard.rbegin(), last.standard.rend(), std::back_inserter(units));
    words.resize(words.size() - last.length);
  }
  std::reverse(units.begin(), units.end());
  return units;
}

std::optional<Words> ReadUnitLine(const Words& words) {
  if (words.empty() || (IsDigit(words[0][0]) && !IsOrdinal(words[0]))) {
    return std::nullopt;  // nearly always a street's line: no unit begins so
  }
  Words rest = words;
  Words units = TakeUnits(rest, 0);
  return rest.empty() && !units.empty() ? std::optional(units) : std::nullopt;
}

}  // namespace postwright::postal
