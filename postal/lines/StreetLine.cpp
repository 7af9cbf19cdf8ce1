#include "postal/lines/StreetLine.h"

#include <algorithm>

#include "postal/lines/Highway.h"
#include "postal/lines/PuertoRico.h"
#include "postal/lines/UnitReader.h"
#include "postal/words/Lexicon.h"
#include "postal/words/Phrase.h"

namespace postwright::postal {
namespace {

constexpr size_t kLongestNumber = 12;  // characters

bool IsFraction(std::string_view word) {
  const size_t slash = word.find('/');
  return slash != std::string_view::npos && AllDigits(word.substr(0, slash)) &&
         AllDigits(word.substr(slash + 1));
}

bool IsCompassPoint(char letter) {
  return letter == 'N' || letter == 'S' || letter == 'E' || letter == 'W';
}

// N6W23001: two compass points, each with its distance (appendix D1).
bool IsGrid(std::string_view text) {
  for (int axis = 0; axis < 2; ++axis) {
    if (text.size() < 2 || !IsCompassPoint(text[0]) || !IsDigit(text[1])) {
      return false;
    }
    text.remove_prefix(1);
    text.remove_prefix(std::find_if_not(text.begin(), text.end(), IsDigit) - text.begin());
  }
  return text.empty();
}

// How many words in front make up a grid number: N6W23001, N6 W23001, N 6 W 23001.
size_t GridLength(const Words& words) {
  if (words.empty() || !IsCompassPoint(words[0][0])) {
    return 0;
  }
  std::string joined;
  for (size_t length = 1; length <= 4 && length < words.size(); ++length) {
    joined += words[length - 1];
    if (IsGrid(joined)) {
      return length;
    }
  }
  return 0;
}

// A17, AB17 or A17B: block and house.
bool IsBlockNumber(std::string_view word) {
  if (word.size() > 2 && IsUpper(word.back()) && IsDigit(word[word.size() - 2])) {
    word.remove_suffix(1);
  }
  return word.size() > 1 && IsUpper(word[0]) && AllDigits(word.substr(IsUpper(word[1]) ? 2 : 1));
}

// 67/69: two houses. Of a fraction the second number is small.
bool IsPairOfHouses(std::string_view word) {
  constexpr size_t kLongestFraction = 1;  // digits
  return IsFraction(word) && word.find('/') > kLongestFraction;
}

// Numbers that are written out in front of a street that is itself a number: TWO 20TH ST. In front
// of others they may be a part of its name, as in THREE RIVERS DR.
std::string NumberInWords(const Words& words) {
  static constexpr std::string_view kNumbers[] = {
      "TWO", "THREE", "FOUR", "FIVE", "SIX", "SEVEN", "EIGHT", "NINE", "TEN", "ELEVEN", "TWELVE"};
  const auto* const number = std::find(std::begin(kNumbers), std::end(kNumbers), words[0]);
  return number != std::end(kNumbers) && IsOrdinal(words[1])
             ? std::to_string(number - std::begin(kNumbers) + 2)
             : std::string();
}

// Takes the house number off the front; empty where there is none.
Words TakeNumber(Words& words, bool puertoRico) {
  Words number;
  size_t taken = GridLength(words);
  if (taken > 0) {
    number = {""};
    for (size_t i = 0; i < taken; ++i) {
      number[0] += words[i];
    }
  } else if (!words.empty() && words[0].size() <= kLongestNumber &&
             ((IsDigit(words[0][0]) && !IsOrdinal(words[0]) &&
               (!IsFraction(words[0]) || IsPairOfHouses(words[0]))) ||
              (puertoRico && IsBlockNumber(words[0])))) {
    taken = 1;
    const size_t hyphen = words[0].find('-');
    number = hyphen != std::string::npos && IsFraction(words[0].substr(hyphen + 1))
                 ? Words{words[0].substr(0, hyphen), words[0].substr(hyphen + 1)}
                 : Words{words[0]};
    if (words.size() > 1 && number.size() == 1 && IsFraction(words[1])) {
      number.push_back(words[1]);
      taken = 2;
    }
  } else if (words.size() > 2 && words[0] == "ONE" && words[1] != "MILE") {
    number = {"1"};  // the one number that people write out: ONE MAIN ST
    taken = 1;
  } else if (words.size() > 2 && !NumberInWords(words).empty()) {
    number = {NumberInWords(words)};
    taken = 1;
  }
  words.erase(words.begin(), words.begin() + taken);
  return number;
}

// Moves units that were written in front of the house number after the street: APT 4 12 MAIN ST.
void MoveLeadingUnits(Words& words) {
  size_t number = 0;
  while (number + 1 < words.size() && !Lexicon::Get().NumberedUnit(words[number]).empty()) {
    number += 2 + NumberSignLength(words, number + 1);
  }
  if (number > 0 && number + 1 < words.size() && IsDigit(words[number][0]) &&
      !IsOrdinal(words[number])) {
    std::rotate(words.begin(), words.begin() + static_cast<long>(number), words.end());
  }
}

// Returns NE for N and E; empty for two directionals that do not make one.
std::string Combine(std::string_view first, std::string_view second) {
  const bool makesOne = (first == "N" || first == "S") && (second == "E" || second == "W");
  return makesOne ? std::string(first) + std::string(second) : std::string();
}

// Reads the street's name with what comes before and after it.
class NameReader {
 public:
  NameReader(Words words, std::string_view state, StreetLine& line)
      : rest_(std::move(words)), state_(state), line_(line) {}

  void Read() {
    if (state_ == "PR" && !SpanishType(rest_[0]).empty()) {
      rest_[0] = SpanishType(rest_[0]);
      line_.name = std::move(rest_);
      return;
    }
    if (!TakePredirectional()) {
      return;
    }
    whole_ = StandardiseHighway(rest_, state_);
    if (whole_ == 0 && (IsTypeWithLetter() || EndsInKeyWithLetter())) {
      line_.name = std::move(rest_);
      return;
    }
    TakeBareUnit();
    TakePostdirectional();
    TakeSuffix();
    line_.name = std::move(rest_);
  }

 private:
  static std::string_view Direction(const std::string& word) {
    return Lexicon::Get().Direction(word);
  }
  static std::string_view Suffix(const std::string& word) { return Lexicon::Get().Suffix(word); }
  static bool IsPlainType(const std::string& word) {
    return Lexicon::Get().IsPlainType(Suffix(word));
  }

  // Says whether there is only a suffix from `at` on, or one and a directional: then the name
  // stands before it.
  bool IsSuffixAlone(size_t at) const {
    const size_t length = rest_.size() - at;
    return (length == 1 && !Suffix(rest_[at]).empty()) ||
           (length == 2 && !Suffix(rest_[at]).empty() && !Direction(rest_[at + 1]).empty());
  }

  // Returns false where the name was read along with it.
  bool TakePredirectional() {
    if (rest_.size() < 2 || Direction(rest_[0]).empty()) {
      return true;
    }
    if (IsSuffixAlone(1) && IsPlainType(rest_[1])) {
      line_.suffix = Suffix(rest_[1]);
      line_.postdirectional = rest_.size() == 3 ? Direction(rest_[2]) : "";
      line_.name = {rest_[0]};
      return false;
    }
    if (rest_.size() == 2 && Lexicon::Get().IsOtherType(rest_[1]) &&
        Direction(rest_[0]).size() == 1) {
      rest_[0] = Lexicon::Get().SpelledDirection(Direction(rest_[0]));
      line_.name = std::move(rest_);  // W PASS: a parser that does not know PASS abbreviates WEST
      return false;
    }
    if (rest_.size() == 2 && (!Direction(rest_[1]).empty() || !Suffix(rest_[1]).empty())) {
      line_.name =
          std::move(rest_);  // NORTH LAKE, SOUTH WEST: which of them is the name is not certain
      return false;
    }
    // One written out after one that is not is the name, as in S WEST TEMPLE.
    const bool alike = (rest_[0].size() == 1) == (rest_[1].size() == 1);
    const std::string both =
        alike ? Combine(Direction(rest_[0]), Direction(rest_[1])) : std::string();
    const size_t taken = !both.empty() && !IsSuffixAlone(2) ? 2 : 1;
    line_.predirectional = taken == 2 ? both : Direction(rest_[0]);
    rest_.erase(rest_.begin(), rest_.begin() + taken);
    return true;
  }

  // AVENUE E is a name, no avenue in the east.
  bool IsTypeWithLetter() const {
    return rest_.size() == 2 && IsPlainType(rest_[0]) && !Direction(rest_[1]).empty();
  }

  // BLUE KEY E is a key's eastern part, or unit KEY E on BLUE: nothing is abbreviated.
  bool EndsInKeyWithLetter() const {
    return rest_.size() > 2 && rest_[rest_.size() - 2] == "KEY" && rest_.back().size() == 1 &&
           !Direction(rest_.back()).empty();
  }

  // How many words in front must stay as they are.
  size_t Kept() const { return std::max<size_t>(whole_, 1); }

  void TakePostdirectional() {
    if (rest_.size() <= Kept() || Direction(rest_.back()).empty()) {
      return;
    }
    line_.postdirectional = Direction(rest_.back());
    rest_.pop_back();
    if (rest_.size() > Kept() + 1 && !Suffix(rest_[rest_.size() - 2]).empty()) {
      const std::string both = Combine(Direction(rest_.back()), line_.postdirectional);
      if (!both.empty()) {
        line_.postdirectional = both;
        rest_.pop_back();
      }
    }
  }

  void TakeSuffix() {
    if (rest_.size() <= Kept() || Suffix(rest_.back()).empty()) {
      return;
    }
    line_.suffix = Suffix(rest_.back());
    rest_.pop_back();
    // Section 234.2: of two suffixes the first is part of the name. ST may be SAINT or STATE.
    if (rest_.size() > Kept() && rest_.back() != "ST" && Suffix(rest_.back()) == rest_.back()) {
      rest_.back() = Lexicon::Get().SpelledSuffix(rest_.back());
    }
  }

  // A number after the street that no word announces: 12 MAIN ST 4B. After ROAD, LOOP and their
  // like it may as well be the road's own, as in PRIVATE ROAD 5.
  void TakeBareUnit() {
    static constexpr std::string_view kTypes[] = {"AVE",  "BLVD", "CIR", "CT",  "DR", "LN",
                                                  "PKWY", "PL",   "ST",  "TER", "WAY"};
    const size_t behind = rest_.size() > 1 && !Direction(rest_[rest_.size() - 2]).empty() ? 3 : 2;
    if (whole_ > 0 || !line_.units.empty() || rest_.size() <= behind || !HasDigit(rest_.back()) ||
        IsOrdinal(rest_.back()) || IsFraction(rest_.back()) || rest_[0] == "PRIVATE") {
      return;
    }
    const std::string_view type = Suffix(rest_[rest_.size() - behind]);
    if (std::find(std::begin(kTypes), std::end(kTypes), type) != std::end(kTypes)) {
      line_.units = {"#", rest_.back()};
      rest_.pop_back();
    }
  }

  Words rest_;
  std::string_view state_;
  StreetLine& line_;
  size_t whole_ = 0;  // words in front that a highway's name takes
};

}  // namespace

Words StreetLine::Compose() const {
  constexpr size_t kOneWordElements = 3;
  Words words;
  words.reserve(number.size() + name.size() + units.size() + kOneWordElements);
  words = number;
  const auto add = [&](const std::string& word) {
    if (!word.empty()) {
      words.push_back(word);
    }
  };
  add(predirectional);
  words.insert(words.end(), name.begin(), name.end());
  add(suffix);
  add(postdirectional);
  words.insert(words.end(), units.begin(), units.end());
  return words;
}

std::optional<StreetLine> ReadStreet(Words words, std::string_view state) {
  const bool puertoRico = state == "PR";
  words.erase(words.begin(), words.begin() + NumberSignLength(words, 0));
  MoveLeadingUnits(words);
  std::optional<StreetLine> read(std::in_place);
  StreetLine& line = *read;
  if (puertoRico) {
    line.units = TakeUnits(words, std::min<size_t>(words.size(), 3));
    words = ArrangePuertoRico(std::move(words));
  }
  line.number = TakeNumber(words, puertoRico);
  const Words units = TakeUnits(words, std::min<size_t>(words.size(), 1));
  line.units.insert(line.units.begin(), units.begin(), units.end());
  if (line.number.empty() || words.empty()) {
    return std::nullopt;
  }
  NameReader(std::move(words), state, line).Read();
  return read;
}

}  // namespace postwright::postal
