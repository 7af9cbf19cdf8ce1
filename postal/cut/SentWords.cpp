#include "postal/cut/SentWords.h"

#include <algorithm>

#include "postal/places/CityName.h"
#include "postal/words/Lexicon.h"

namespace postwright::postal {
namespace {

// The designator as the parser writes it.
std::string_view SentUnit(std::string_view word) {
  const std::string_view unit = Lexicon::Get().NumberedUnit(word);
  return unit == "SPC" ? "SPACE" : unit;
}

// How many words of `sent` from `at` on the parser may have made of the word of a name; 0 for none.
size_t WordsOf(const std::string& name, const Words& sent, size_t at) {
  const Lexicon& lexicon = Lexicon::Get();
  if (at >= sent.size()) {
    return 0;
  }
  const std::string& word = sent[at];
  if (CityKey(word) == CityKey(name) || word == lexicon.PlainUnit(name) || word == SentUnit(name)) {
    return 1;
  }
  // A unit's pattern takes the letters that it knows, and the rest of the word for the number.
  if (at + 1 < sent.size() && name.ends_with(sent[at + 1])) {
    const std::string_view designator =
        std::string_view(name).substr(0, name.size() - sent[at + 1].size());
    return !word.empty() && SentUnit(designator) == word ? 2 : 0;
  }
  return 0;
}

bool IsDirection(const std::string& word) {
  return !Lexicon::Get().Direction(word).empty();
}

}  // namespace

Words From(const Words& words, size_t at) {
  return {words.begin() + static_cast<long>(at), words.end()};
}

Words UpTo(const Words& words, size_t at) {
  return {words.begin(), words.begin() + static_cast<long>(at)};
}

void Append(Words& words, const Words& more) {
  words.insert(words.end(), more.begin(), more.end());
}

bool AreCity(const Words& words, const std::string& name) {
  // Every form of a word begins alike, but XING and XRD (crossing, crossroad) and figures.
  const auto isTelling = [](char c) { return IsUpper(c) && c != 'X'; };
  const char first = words.empty() || words[0].empty() ? 'X' : words[0][0];
  if (!name.empty() && first != name[0] && isTelling(first) && isTelling(name[0])) {
    return false;  // nearly always
  }
  if (CityKey(JoinWords(words)) == CityKey(name)) {
    return true;
  }
  size_t at = 0;
  for (const std::string& word : SplitLine(name)) {
    const size_t taken = WordsOf(word, words, at);
    if (taken == 0) {
      return false;
    }
    at += taken;
  }
  return at == words.size();
}

bool IsCutAtType(const Words& line) {
  const size_t number = line.size() > 1 && line[1].find('/') != std::string::npos ? 2 : 1;
  return line.size() == number + 2 && HasDigit(line[0]) && IsDirection(line[number]) &&
         !Lexicon::Get().Suffix(line[number + 1]).empty();
}

bool MayBeAbbreviated(const std::string& word) {
  const Lexicon& lexicon = Lexicon::Get();
  return !lexicon.Direction(word).empty() ||
         (lexicon.Suffix(word) == word && lexicon.SpelledSuffix(word) != word);
}

std::optional<Words> JoinStreet(const Words& line, const Words& behind) {
  const Lexicon& lexicon = Lexicon::Get();
  Words street = line;
  if (!behind.empty() && IsCutAtType(line)) {
    std::string& type = street.back();
    if (type == "LN" && (behind.size() > 1 || lexicon.Suffix(behind[0]).empty())) {
      return std::nullopt;
    }
    if (type == lexicon.Suffix(type) && type != "ST" && type != "VIA") {  // SAINT; a Spanish street
      type = lexicon.SpelledSuffix(type);
    }
  }
  Append(street, behind);
  return street;
}

std::string RestoreNumber(std::string_view folded) {
  constexpr std::string_view kApartment = " APT -";
  const size_t apartment = folded.rfind(kApartment);
  std::string line(folded);
  if (apartment == std::string_view::npos || apartment + kApartment.size() + 1 != folded.size()) {
    return line;
  }
  const std::string_view number = folded.substr(0, folded.find(' '));
  if (!AllDigits(number)) {
    return line;
  }
  const char letter = folded.back();
  const Words rest = SplitLine(folded.substr(number.size(), apartment - number.size()));
  const bool isFraction = rest.size() > 1 && rest[0].size() == 1 && rest[0][0] > letter &&
                          std::string_view("2348").find(rest[0]) != std::string_view::npos &&
                          rest[1] != "MILE";
  if (IsDigit(letter) && isFraction) {
    return std::string(number) + ' ' + letter + '/' + JoinWords(rest);
  }
  return std::string(number) + (IsDigit(letter) ? "-" : "") + letter + ' ' + JoinWords(rest);
}

Words RestoreName(Words line) {
  // Flowers, in Spanish and in names: the parser's pattern of a floor takes FLOR for one.
  static constexpr std::string_view kFlowers[] = {"AL", "ENCE", "ENCIA", "ES", "IDA"};
  constexpr size_t kCutAt = 3;  // number, directional, suffix
  if (line.size() < kCutAt) {
    return line;
  }
  const std::string unit = line[line.size() - 2];
  const std::string number = line.back();
  const Words before = UpTo(line, line.size() - 2);
  if (unit == "FL" && line.size() > kCutAt &&
      std::find(std::begin(kFlowers), std::end(kFlowers), number) != std::end(kFlowers)) {
    line.pop_back();
    line.back() = "FLOR" + number;
    return line;
  }
  const bool isSuffix = (unit == "FL" || unit == "KEY") && AllLetters(number) &&
                        !Lexicon::Get().Suffix(unit + number).empty();
  return isSuffix && IsCutAtType(before) ? JoinStreet(before, {unit + number}).value_or(line)
                                         : line;
}

std::string LetterAtEnd(const Words& line) {
  const bool isOne = line.size() > 3 && line[line.size() - 2] == "APT" && AllDigits(line[0]) &&
                     line.back().size() == 1 && IsUpper(line.back()[0]);
  return isOne ? line.back() : std::string();
}

Words WithLetter(Words line) {
  line[0] += line.back();
  line.resize(line.size() - 2);
  return line;
}

}  // namespace postwright::postal
