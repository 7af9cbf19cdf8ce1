#include "postal/places/CityName.h"

#include <algorithm>
#include <numeric>
#include <vector>

#include "common/AsciiText.h"
#include "postal/words/Lexicon.h"

namespace postwright::postal {
namespace {

constexpr size_t kLongestPrinted = 13;  // letters of a city in the old form of the last line

// The abbreviation that a word of a city's name has, or the word.
std::string Shorten(const std::string& word) {
  if (word == "SAINT") {
    return "ST";
  }
  if (word == "SAINTE") {
    return "STE";
  }
  const Lexicon& lexicon = Lexicon::Get();
  const std::string_view direction = lexicon.Direction(word);
  const std::string_view suffix = direction.empty() ? lexicon.Suffix(word) : direction;
  return suffix.empty() ? word : std::string(suffix);
}

// Number of letters left out, put in, changed or swapped with their neighbour (optimal string
// alignment).
size_t Distance(std::string_view a, std::string_view b) {
  std::vector<size_t> beforeLast(b.size() + 1), last(b.size() + 1), row(b.size() + 1);
  std::iota(last.begin(), last.end(), 0);
  for (size_t i = 1; i <= a.size(); ++i) {
    row[0] = i;
    for (size_t j = 1; j <= b.size(); ++j) {
      row[j] = std::min({last[j] + 1, row[j - 1] + 1, last[j - 1] + (a[i - 1] != b[j - 1])});
      if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1]) {
        row[j] = std::min(row[j], beforeLast[j - 2] + 1);
      }
    }
    beforeLast.swap(last);  // what was the row before the last is overwritten next
    last.swap(row);
  }
  return last[b.size()];
}

// Says whether `word` shortens `full`: the same first letter and only letters left out.
bool Shortens(std::string_view word, std::string_view full) {
  if (word.front() != full.front()) {
    return false;
  }
  size_t at = 0;
  for (const char letter : full) {
    at += at < word.size() && word[at] == letter ? 1 : 0;
  }
  return at == word.size();
}

bool IsAbbreviation(const Words& given, const Words& known) {
  if (known.size() > 1 && given.size() == 1 && given[0].size() == known.size()) {
    return std::equal(known.begin(), known.end(), given[0].begin(),
                      [](const std::string& word, char initial) { return word[0] == initial; });
  }
  return JoinWords(known).size() > kLongestPrinted && given.size() == known.size() &&
         std::equal(given.begin(), given.end(), known.begin(), Shortens);
}

// A letter that is wrong in MOUNT or RIVER leaves no word that could be shortened as they are. TRO
// for TROY is near enough, too, but of shorter names too many are alike.
bool IsMisspelt(std::string_view given, std::string_view known) {
  constexpr size_t kShortest = 3;  // letters of a name
  std::string a(given);
  std::string b(known);
  std::erase(a, ' ');
  std::erase(b, ' ');
  return a.size() >= kShortest && b.size() >= kShortest && a.size() + b.size() > 2 * kShortest &&
         DiffersByOneLetter(a, b);
}

}  // namespace

std::string StandardCity(std::string_view folded) {
  if (folded.find('\'') == std::string_view::npos) {
    return TidyLine(folded);
  }
  std::string spaced;
  for (size_t i = 0; i < folded.size(); ++i) {
    const bool initial = folded[i] == '\'' && i > 0 && (i == 1 || folded[i - 2] == ' ');
    spaced += initial ? ' ' : folded[i];  // O'FALLON, COEUR D'ALENE, but LEE'S
  }
  return TidyLine(spaced);
}

std::string CityKey(std::string_view standardCity) {
  std::string key;
  for (const std::string& word : SplitLine(standardCity)) {
    key += Shorten(word);
  }
  return key;
}

CityFit CompareCity(std::string_view given, std::string_view known) {
  if (given == known) {
    return CityFit::Same;
  }
  const std::string givenKey = CityKey(given);
  const std::string knownKey = CityKey(known);
  if (givenKey == knownKey) {
    return CityFit::Same;
  }
  if (IsAbbreviation(SplitLine(given), SplitLine(known))) {
    return CityFit::Abbreviation;
  }
  if (NearDistance(givenKey, knownKey) || IsMisspelt(given, known)) {
    return CityFit::Near;
  }
  return known.ends_with(' ' + std::string(given)) ? CityFit::Part : CityFit::Different;
}

std::optional<size_t> NearDistance(std::string_view key, std::string_view other) {
  const auto [shorter, longer] = std::minmax({key.size(), other.size()});
  const size_t allowed = shorter < 4 ? 0 : shorter < 9 ? 1 : 2;
  if (longer - shorter > allowed) {
    return std::nullopt;
  }
  const size_t distance = Distance(key, other);
  return distance <= allowed ? std::optional(distance) : std::nullopt;
}

bool DiffersByOneLetter(std::string_view a, std::string_view b) {
  const auto front = std::mismatch(a.begin(), a.end(), b.begin(), b.end());
  a.remove_prefix(front.first - a.begin());
  b.remove_prefix(front.second - b.begin());
  const auto back = std::mismatch(a.rbegin(), a.rend(), b.rbegin(), b.rend());
  a.remove_suffix(back.first - a.rbegin());
  b.remove_suffix(back.second - b.rbegin());
  if (HasDigit(a) || HasDigit(b)) {
    return false;
  }
  const bool swapped = a.size() == 2 && b.size() == 2 && a[0] == b[1] && a[1] == b[0];
  return swapped || std::max(a.size(), b.size()) == 1;
}

std::string AbbreviateCity(std::string_view standardCity) {
  if (standardCity.size() <= kLongestPrinted) {
    return {};
  }
  Words words = SplitLine(standardCity);
  std::transform(words.begin(), words.end(), words.begin(), Shorten);
  std::string shortened = JoinWords(words);
  return shortened.size() <= kLongestPrinted ? shortened : std::string();
}

}  // namespace postwright::postal
