#include "postal/base/StreetName.h"

#include <algorithm>
#include <span>
#include <utility>

#include "postal/words/Lexicon.h"

namespace postwright::postal {
namespace {

constexpr std::pair<std::string_view, std::string_view> kAlike[] = {
    {"FIRST", "1ST"}, {"SECOND", "2ND"}, {"THIRD", "3RD"},     {"FOURTH", "4TH"},
    {"FIFTH", "5TH"}, {"SIXTH", "6TH"},  {"SEVENTH", "7TH"},   {"EIGHTH", "8TH"},
    {"NINTH", "9TH"}, {"TENTH", "10TH"}, {"ELEVENTH", "11TH"}, {"TWELFTH", "12TH"},
    {"SAINT", "ST"},  {"MOUNT", "MT"},   {"FORT", "FT"},
};

constexpr std::pair<std::string_view, std::string_view> kNumbers[] = {
    {"THIRTEENTH", "13"},  {"FOURTEENTH", "14"}, {"FIFTEENTH", "15"},  {"SIXTEENTH", "16"},
    {"SEVENTEENTH", "17"}, {"EIGHTEENTH", "18"}, {"NINETEENTH", "19"}, {"TWENTIETH", "20"},
    {"THIRTIETH", "30"},   {"FORTIETH", "40"},   {"FIFTIETH", "50"},   {"SIXTIETH", "60"},
    {"SEVENTIETH", "70"},  {"EIGHTIETH", "80"},  {"NINETIETH", "90"},
};
constexpr std::string_view kTens[] = {"TWENTY", "THIRTY",  "FORTY",  "FIFTY",
                                      "SIXTY",  "SEVENTY", "EIGHTY", "NINETY"};

// Returns what a row of a table says of the word; the empty text where none does.
std::string_view Find(std::span<const std::pair<std::string_view, std::string_view>> rows,
                      std::string_view word) {
  const auto row =
      std::find_if(rows.begin(), rows.end(), [&](const auto& each) { return each.first == word; });
  return row == rows.end() ? std::string_view() : row->second;
}

std::string ShortWord(const std::string& word) {
  if (IsOrdinal(word)) {
    return word.substr(0, word.size() - 2);
  }
  if (const std::string_view alike = Find(kAlike, word); !alike.empty()) {
    return IsDigit(alike[0]) ? std::string(alike.substr(0, alike.size() - 2)) : std::string(alike);
  }
  const Lexicon& lexicon = Lexicon::Get();
  for (const std::string_view known :
       {lexicon.Direction(word), lexicon.Suffix(word), Find(kNumbers, word)}) {
    if (!known.empty()) {
      return std::string(known);
    }
  }
  return word;
}

}  // namespace

StreetName StreetNameOf(const StreetLine& line, std::string_view urbanization) {
  return {line.predirectional, JoinWords(line.name), line.suffix, line.postdirectional,
          std::string(urbanization)};
}

std::string ComposeStreet(const StreetName& street) {
  Words words;
  for (const std::string* element :
       {&street.predirectional, &street.name, &street.suffix, &street.postdirectional}) {
    if (!element->empty()) {
      words.push_back(*element);
    }
  }
  return JoinWords(words);
}

std::string PackStreet(const StreetName& street) {
  std::string packed;
  for (const std::string* element : {&street.predirectional, &street.name, &street.suffix,
                                     &street.postdirectional, &street.urbanization}) {
    packed.append(*element).append(1, '\n');
  }
  return packed;
}

StreetName UnpackStreet(std::string_view packed) {
  StreetName street;
  for (std::string* element : {&street.predirectional, &street.name, &street.suffix,
                               &street.postdirectional, &street.urbanization}) {
    const size_t end = packed.find('\n');
    *element = packed.substr(0, end);
    packed.remove_prefix(end + 1);
  }
  return street;
}

std::string StreetKey(std::string_view name) {
  std::string key;
  for (const std::string& word : SplitLine(name)) {
    const std::string_view alike = Find(kAlike, word);
    key += alike.empty() ? std::string_view(word) : alike;
  }
  return key;
}

Words ShortStreetWords(const Words& words) {
  Words shortened;
  shortened.reserve(words.size());
  for (size_t i = 0; i < words.size(); ++i) {
    shortened.push_back(ShortWord(words[i]));
    const auto* const tens = std::find(std::begin(kTens), std::end(kTens), words[i]);
    const std::string digit =
        tens != std::end(kTens) && i + 1 < words.size() ? ShortWord(words[i + 1]) : std::string();
    if (digit.size() == 1 && IsDigit(digit[0])) {
      shortened.back() = static_cast<char>('2' + (tens - std::begin(kTens))) + digit;
      ++i;
    }
  }
  return shortened;
}

}  // namespace postwright::postal
