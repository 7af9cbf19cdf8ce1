#include "postal/lines/BoxLine.h"

#include <algorithm>

#include "postal/words/Lexicon.h"
#include "postal/words/Phrase.h"

namespace postwright::postal {
namespace {

constexpr std::string_view kPostOfficeBox[] = {
    "PO BOX",   "P O BOX",        "POBOX",      "POB",        "P O B",
    "PO B",     "PO BX",          "P O BX",     "BOX",        "POST OFFICE BOX",
    "POST BOX", "POSTOFFICE BOX", "PO DRAWER",  "P O DRAWER", "PO CALLER",
    "CALLER",   "FIRM CALLER",    "CALLER BOX", "BIN",        "LOCKBOX",
    "LOCK BOX", "DRAWER",         "APARTADO"};
constexpr std::string_view kRuralRoute[] = {"RR",       "R R", "RURAL ROUTE", "RURAL RTE",
                                            "RURAL RT", "RFD", "R F D",       "RURAL DELIVERY",
                                            "RFD ROUTE"};
// These are rural routes where a box follows, and roads otherwise.
constexpr std::string_view kRouteOrRoad[] = {"RD", "RT", "RTE", "ROUTE"};
constexpr std::string_view kHighwayContract[] = {"HC",
                                                 "H C",
                                                 "HCR",
                                                 "HC ROUTE",
                                                 "HIGHWAY CONTRACT",
                                                 "HIGHWAY CONTRACT ROUTE",
                                                 "HWY CONTRACT",
                                                 "HWY CONTRACT ROUTE",
                                                 "STAR ROUTE",
                                                 "STAR RTE",
                                                 "STAR RT"};
constexpr std::string_view kGeneralDelivery[] = {"GENERAL DELIVERY", "GEN DELIVERY", "GENERAL DEL",
                                                 "GEN DEL"};
constexpr std::string_view kBox[] = {"BOX", "BX", "BUZON", "BZN"};
// In front of the number, as the words of the vocabulary are.
constexpr std::string_view kSpelledPsc = "P S C";

bool IsBoxNumber(const std::string& word) {
  return word != "#" && (HasDigit(word) || (word.size() <= 2 && AllLetters(word)));
}

// Parts the letters of a glued first word from its number: RR3 and RR-3 -> RR 3, POBOX12 -> POBOX
// 12.
Words PartFirst(Words words) {
  static constexpr std::string_view kGlued[] = {"RR", "HC", "HCR", "POBOX", "POB", "BOX"};
  if (words.empty()) {
    return words;
  }
  const std::string word = words[0];
  const size_t digits = std::find_if(word.begin(), word.end(), IsDigit) - word.begin();
  const bool hyphen = digits > 0 && digits < word.size() && word[digits - 1] == '-';
  const std::string_view letters = std::string_view(word).substr(0, digits - (hyphen ? 1 : 0));
  const bool isGlued =
      std::find(std::begin(kGlued), std::end(kGlued), letters) != std::end(kGlued) ||
      Lexicon::Get().IsMilitaryUnit(letters);
  if (digits < word.size() && isGlued) {
    words[0] = std::string(letters);
    words.insert(words.begin() + 1, word.substr(digits));
  }
  return words;
}

std::string WithoutLeadingZeros(const std::string& number) {
  const size_t first = number.find_first_not_of('0');
  return first == std::string::npos || !IsDigit(number[first]) ? number : number.substr(first);
}

// Reads "BOX n" at `at`; moves `at` past it. Returns the number, empty where there is no box.
std::string TakeBox(const Words& words, size_t& at) {
  const size_t box = LongestPhrase(words, at, kBox);
  const size_t number = at + box + NumberSignLength(words, at + box);
  if (box == 0 || number >= words.size() || !IsBoxNumber(words[number])) {
    return {};
  }
  at = number + 1;
  return words[number];
}

// Most lines begin with a house number, and no phrase of these forms does.
bool BeginsWithNumber(const Words& words) {
  return words.empty() || IsDigit(words[0][0]);
}

Words From(const Words& words, size_t at) {
  return at < words.size() ? Words(words.begin() + at, words.end()) : Words();
}

}  // namespace

std::optional<BoxLine> ReadPostOfficeBox(const Words& given) {
  if (BeginsWithNumber(given)) {
    return std::nullopt;
  }
  const Words words = PartFirst(given);
  const size_t length = LongestPhrase(words, 0, kPostOfficeBox);
  const size_t number = length + NumberSignLength(words, length);
  if (length == 0 || number >= words.size() || !IsBoxNumber(words[number])) {
    return std::nullopt;
  }
  return BoxLine{{"PO", "BOX", words[number]}, From(words, number + 1)};
}

std::optional<BoxLine> ReadRoute(const Words& given) {
  if (BeginsWithNumber(given)) {
    return std::nullopt;
  }
  Words words = PartFirst(given);
  size_t at = 0;
  const std::string boxInFront = TakeBox(words, at);  // "BOX 9 RR 3"
  words.erase(words.begin(), words.begin() + at);
  const size_t contract = LongestPhrase(words, 0, kHighwayContract);
  const size_t rural = LongestPhrase(words, 0, kRuralRoute);
  const size_t road = LongestPhrase(words, 0, kRouteOrRoad);
  const size_t length = std::max({rural, contract, road});
  at = length + NumberSignLength(words, length);
  if (length == 0 || at >= words.size() || !IsDigit(words[at][0])) {
    return std::nullopt;
  }
  BoxLine read{{contract > 0 ? "HC" : "RR", WithoutLeadingZeros(words[at])}, {}};
  ++at;
  const bool sign = NumberSignLength(words, at) > 0;  // RFD ROUTE 4 # 87A
  if (boxInFront.empty() && sign) {
    words.insert(words.begin() + static_cast<long>(at), "BOX");
  }
  const std::string box = boxInFront.empty() ? TakeBox(words, at) : boxInFront;
  const Words rest = From(words, at);
  if (!box.empty()) {
    read.line.insert(read.line.end(), {"BOX", box});
    read.aside = rest;
    return read;
  }
  read.line.insert(read.line.end(), rest.begin(), rest.end());
  return road == length ? std::nullopt : std::optional(read);
}

std::optional<BoxLine> ReadGeneralDelivery(const Words& words) {
  const size_t length = LongestPhrase(words, 0, kGeneralDelivery);
  if (length == 0) {
    return std::nullopt;
  }
  return BoxLine{{"GENERAL", "DELIVERY"}, From(words, length)};
}

std::optional<BoxLine> ReadMilitary(const Words& given) {
  const Words words = PartFirst(given);
  for (size_t start = 0; start < words.size(); ++start) {
    const bool isUnit = Lexicon::Get().IsMilitaryUnit(words[start]);
    const size_t length = isUnit ? 1 : PhraseLength(words, start, kSpelledPsc);
    size_t at = start + length + NumberSignLength(words, start + length);
    if (length == 0 || at >= words.size() || !HasDigit(words[at])) {
      continue;
    }
    BoxLine read{Words(words.begin(), words.begin() + start), {}};
    read.line.insert(read.line.end(), {isUnit ? words[start] : std::string("PSC"), words[at]});
    ++at;
    if (const std::string box = TakeBox(words, at); !box.empty()) {
      read.line.insert(read.line.end(), {"BOX", box});
    }
    const Words rest = From(words, at);
    read.line.insert(read.line.end(), rest.begin(), rest.end());
    return read;
  }
  return std::nullopt;
}

}  // namespace postwright::postal
