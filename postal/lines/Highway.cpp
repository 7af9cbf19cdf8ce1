#include "postal/lines/Highway.h"

#include <algorithm>
#include <string>

#include "postal/words/Lexicon.h"
#include "postal/words/Phrase.h"

namespace postwright::postal {
namespace {

constexpr size_t kLongestRoadNumber = 6;

enum class Numbered {
  ByDigits,   // the number must have a digit
  ByLetters,  // the number is one or two letters: COUNTY ROAD E, SR MM
  ByEither,
};

struct HighwayRow {
  std::string_view written;
  std::string_view standard;
  Numbered numbered;
};

// A phrase that begins like a longer one comes after it. Written forms are those of ShortForm.
constexpr HighwayRow kHighways[] = {
    {"COUNTY HWY", "COUNTY HIGHWAY", Numbered::ByEither},
    {"COUNTY RD", "COUNTY ROAD", Numbered::ByEither},
    {"CR", "COUNTY ROAD", Numbered::ByDigits},
    {"FARM TO MARKET RD", "FM", Numbered::ByDigits},
    {"FARM TO MARKET", "FM", Numbered::ByDigits},
    {"HWY FM", "FM", Numbered::ByDigits},
    {"FM RD", "FM", Numbered::ByDigits},
    {"FM", "FM", Numbered::ByDigits},
    {"INTERSTATE HWY", "INTERSTATE", Numbered::ByDigits},
    {"INTERSTATE", "INTERSTATE", Numbered::ByDigits},
    {"IH", "INTERSTATE", Numbered::ByDigits},
    {"I", "INTERSTATE", Numbered::ByDigits},
    {"RANCH RD", "RANCH ROAD", Numbered::ByDigits},
    {"STATE HWY", "STATE HIGHWAY", Numbered::ByEither},
    {"ST HWY", "STATE HIGHWAY", Numbered::ByDigits},
    {"SH", "STATE HIGHWAY", Numbered::ByDigits},
    {"STATE RD", "STATE ROAD", Numbered::ByDigits},
    {"ST RD", "STATE ROAD", Numbered::ByDigits},
    {"SR", "STATE ROAD", Numbered::ByDigits},
    {"STATE RTE", "STATE ROUTE", Numbered::ByEither},
    {"ST RTE", "STATE ROUTE", Numbered::ByDigits},
    {"SR", "STATE ROUTE", Numbered::ByLetters},
    {"TOWNSHIP RD", "TOWNSHIP ROAD", Numbered::ByDigits},
    {"TSR", "TOWNSHIP ROAD", Numbered::ByDigits},
    {"US HWY", "US HIGHWAY", Numbered::ByDigits},
    {"US RTE", "US HIGHWAY", Numbered::ByDigits},
    {"US", "US HIGHWAY", Numbered::ByDigits},
    {"U S HWY", "US HIGHWAY", Numbered::ByDigits},
    {"U S RTE", "US HIGHWAY", Numbered::ByDigits},
    {"U S", "US HIGHWAY", Numbered::ByDigits},
    {"HWY", "HIGHWAY", Numbered::ByDigits},
    {"RD", "ROAD", Numbered::ByDigits},
    {"RTE", "ROUTE", Numbered::ByDigits},
};

// The shortest of a word's written forms, where it is a word of the table.
std::string ShortForm(const std::string& word) {
  if (word == "CNTY" || word == "CO" || word == "CTY") {
    return "COUNTY";
  }
  const std::string_view suffix = word == "RT" ? "RTE" : Lexicon::Get().Suffix(word);
  return suffix == "HWY" || suffix == "RD" || suffix == "RTE" ? std::string(suffix) : word;
}

// COUNTY HIGHWAY NORTH goes by a letter, as far as anyone can tell: NORTH is not abbreviated.
bool IsRoadLetter(const std::string& word) {
  return (word.size() <= 2 && AllLetters(word)) || !Lexicon::Get().Direction(word).empty();
}

bool IsRoadNumber(const std::string& word, Numbered numbered) {
  const bool digits = IsDigit(word[0]) && word.size() <= kLongestRoadNumber;
  return (digits && numbered != Numbered::ByLetters) ||
         (numbered != Numbered::ByDigits && IsRoadLetter(word));
}

// Separates a directional from an interstate's number: 35N -> 35 N.
void PartDirection(Words& name) {
  const std::string number = name[1];
  const std::string digits = number.substr(0, number.size() - 1);
  if (AllDigits(digits) && !Lexicon::Get().Direction(number.substr(digits.size())).empty()) {
    name[1] = digits;
    name.insert(name.begin() + 2, number.substr(digits.size()));
  }
}

// Separates a road's letters from its number: "I-10" "I10" -> I 10, and "TX-71" in Texas.
void PartNumber(Words& name, std::string_view state) {
  static constexpr std::string_view kGlued[] = {"CR",  "FM", "HWY", "I",   "IH", "RT",
                                                "RTE", "SH", "SR",  "TSR", "US"};
  const std::string word = name[0];
  const size_t digits = std::find_if(word.begin(), word.end(), IsDigit) - word.begin();
  const bool hyphen = digits > 0 && digits < word.size() && word[digits - 1] == '-';
  const std::string_view letters = std::string_view(word).substr(0, digits - (hyphen ? 1 : 0));
  const bool road = std::find(std::begin(kGlued), std::end(kGlued), letters) != std::end(kGlued) ||
                    (hyphen && letters == state);
  if (digits < word.size() && road) {
    name[0] = std::string(letters);
    name.insert(name.begin() + 1, word.substr(digits));
  }
  if (name.size() > 1 && (name[0] == "I" || name[0] == "IH")) {
    PartDirection(name);
  }
}

// How many words at the front name a state, by its name or its code.
size_t StateLength(const Words& name) {
  for (size_t length = std::min<size_t>(name.size(), 4); length > 0; --length) {
    const bool wholeWords = std::none_of(name.begin(), name.begin() + length,
                                         [](const std::string& word) { return word.size() == 1; });
    if (wholeWords &&
        !Lexicon::Get().State(JoinWords(name.begin(), name.begin() + length)).empty()) {
      return length;
    }
  }
  return 0;
}

// Says whether the first word of a row's phrase is `word`: nearly always it is not. A short form
// begins with the word's own letter.
bool BeginsHighway(const std::string& word) {
  static constexpr std::string_view kInitials = "CFHIRSTU";
  static_assert(std::all_of(std::begin(kHighways), std::end(kHighways), [](const HighwayRow& row) {
    return kInitials.find(row.written[0]) != std::string_view::npos;
  }));
  if (kInitials.find(word[0]) == std::string_view::npos) {
    return false;
  }
  const std::string first = ShortForm(word);
  return std::any_of(std::begin(kHighways), std::end(kHighways), [&](const HighwayRow& row) {
    return row.written[0] == first[0] && row.written.substr(0, row.written.find(' ')) == first;
  });
}

// Rewrites the highway at `at`, returns the words it has then; 0 where there is none.
size_t RewriteAt(Words& name, size_t at) {
  if (!BeginsHighway(name[at])) {
    return 0;
  }
  Words shortForms = name;
  std::transform(name.begin(), name.end(), shortForms.begin(), ShortForm);
  for (const HighwayRow& row : kHighways) {
    const size_t length = PhraseLength(shortForms, at, row.written);
    const size_t sign = length > 0 ? NumberSignLength(name, at + length) : 0;
    const size_t number = at + length + sign;
    if (length > 0 && number < name.size() && IsRoadNumber(name[number], row.numbered)) {
      const Words standard = SplitLine(row.standard);
      name.erase(name.begin() + at, name.begin() + number);
      name.insert(name.begin() + at, standard.begin(), standard.end());
      return standard.size() + 1;
    }
  }
  return 0;
}

}  // namespace

size_t StandardiseHighway(Words& name, std::string_view state) {
  if (name.empty()) {
    return 0;
  }
  PartNumber(name, state);
  if (const size_t length = RewriteAt(name, 0); length > 0) {
    return length;
  }
  const auto mayStandBehindState = [](const std::string& word) {
    return IsDigit(word[0]) || BeginsHighway(word);
  };
  if (std::none_of(name.begin() + 1, name.end(), mayStandBehindState)) {
    return 0;
  }
  const size_t stateLength = StateLength(name);
  if (stateLength == 0 || stateLength >= name.size()) {
    return 0;
  }
  const std::string code(Lexicon::Get().State(JoinWords(name.begin(), name.begin() + stateLength)));
  const bool named = name[0] != code || code == state;  // KY 1207 is a highway in Kentucky alone
  size_t length = RewriteAt(name, stateLength);
  if (length == 0 && !(named && IsRoadNumber(name[stateLength], Numbered::ByDigits))) {
    return 0;
  }
  if (length == 0) {
    name.insert(name.begin() + stateLength, "HIGHWAY");
    length = 2;
  }
  name.erase(name.begin(), name.begin() + stateLength);
  name.insert(name.begin(), code);
  return length + 1;
}

}  // namespace postwright::postal
