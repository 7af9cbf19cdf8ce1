#include "service/address/Highway.h"

#include <algorithm>
#include <string>

#include "service/address/Lexicon.h"
#include "service/address/Phrase.h"

namespace postwright::service {
namespace {

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

// A phrase that begins like a longer one stands behind it.
constexpr HighwayRow kHighways[] = {
    {"COUNTY HIGHWAY", "COUNTY HIGHWAY", Numbered::ByEither},
    {"COUNTY HWY", "COUNTY HIGHWAY", Numbered::ByEither},
    {"CNTY HIGHWAY", "COUNTY HIGHWAY", Numbered::ByEither},
    {"CNTY HWY", "COUNTY HIGHWAY", Numbered::ByEither},
    {"CO HIGHWAY", "COUNTY HIGHWAY", Numbered::ByEither},
    {"CO HWY", "COUNTY HIGHWAY", Numbered::ByEither},
    {"COUNTY ROAD", "COUNTY ROAD", Numbered::ByEither},
    {"COUNTY RD", "COUNTY ROAD", Numbered::ByEither},
    {"CNTY ROAD", "COUNTY ROAD", Numbered::ByEither},
    {"CNTY RD", "COUNTY ROAD", Numbered::ByEither},
    {"CO ROAD", "COUNTY ROAD", Numbered::ByEither},
    {"CO RD", "COUNTY ROAD", Numbered::ByEither},
    {"CR", "COUNTY ROAD", Numbered::ByDigits},
    {"FARM TO MARKET ROAD", "FM", Numbered::ByDigits},
    {"FARM TO MARKET RD", "FM", Numbered::ByDigits},
    {"FARM TO MARKET", "FM", Numbered::ByDigits},
    {"HWY FM", "FM", Numbered::ByDigits},
    {"FM ROAD", "FM", Numbered::ByDigits},
    {"FM RD", "FM", Numbered::ByDigits},
    {"FM", "FM", Numbered::ByDigits},
    {"INTERSTATE HIGHWAY", "INTERSTATE", Numbered::ByDigits},
    {"INTERSTATE HWY", "INTERSTATE", Numbered::ByDigits},
    {"INTERSTATE", "INTERSTATE", Numbered::ByDigits},
    {"IH", "INTERSTATE", Numbered::ByDigits},
    {"I", "INTERSTATE", Numbered::ByDigits},
    {"RANCH ROAD", "RANCH ROAD", Numbered::ByDigits},
    {"RANCH RD", "RANCH ROAD", Numbered::ByDigits},
    {"STATE HIGHWAY", "STATE HIGHWAY", Numbered::ByEither},
    {"STATE HWY", "STATE HIGHWAY", Numbered::ByEither},
    {"ST HIGHWAY", "STATE HIGHWAY", Numbered::ByDigits},
    {"ST HWY", "STATE HIGHWAY", Numbered::ByDigits},
    {"STATE ROAD", "STATE ROAD", Numbered::ByDigits},
    {"STATE RD", "STATE ROAD", Numbered::ByDigits},
    {"ST ROAD", "STATE ROAD", Numbered::ByDigits},
    {"ST RD", "STATE ROAD", Numbered::ByDigits},
    {"SR", "STATE ROAD", Numbered::ByDigits},
    {"STATE ROUTE", "STATE ROUTE", Numbered::ByEither},
    {"STATE RTE", "STATE ROUTE", Numbered::ByEither},
    {"STATE RT", "STATE ROUTE", Numbered::ByEither},
    {"ST ROUTE", "STATE ROUTE", Numbered::ByDigits},
    {"ST RTE", "STATE ROUTE", Numbered::ByDigits},
    {"ST RT", "STATE ROUTE", Numbered::ByDigits},
    {"SR", "STATE ROUTE", Numbered::ByLetters},
    {"TOWNSHIP ROAD", "TOWNSHIP ROAD", Numbered::ByDigits},
    {"TOWNSHIP RD", "TOWNSHIP ROAD", Numbered::ByDigits},
    {"TSR", "TOWNSHIP ROAD", Numbered::ByDigits},
    {"US HIGHWAY", "US HIGHWAY", Numbered::ByDigits},
    {"US HWY", "US HIGHWAY", Numbered::ByDigits},
    {"U S HIGHWAY", "US HIGHWAY", Numbered::ByDigits},
    {"U S HWY", "US HIGHWAY", Numbered::ByDigits},
    {"US ROUTE", "US HIGHWAY", Numbered::ByDigits},
    {"US", "US HIGHWAY", Numbered::ByDigits},
    {"U S", "US HIGHWAY", Numbered::ByDigits},
    {"HIGHWAY", "HIGHWAY", Numbered::ByDigits},
    {"HWY", "HIGHWAY", Numbered::ByDigits},
    {"ROAD", "ROAD", Numbered::ByDigits},
    {"RD", "ROAD", Numbered::ByDigits},
    {"ROUTE", "ROUTE", Numbered::ByDigits},
    {"RTE", "ROUTE", Numbered::ByDigits},
    {"RT", "ROUTE", Numbered::ByDigits},
};

bool IsRoadNumber(const std::string& word, Numbered numbered) {
  const bool digits = IsDigit(word[0]) && word.size() <= 6;
  const bool letters = word.size() <= 2 && AllLetters(word);
  return (digits && numbered != Numbered::ByLetters) || (letters && numbered != Numbered::ByDigits);
}

// Parts a road's letters from its number: "I-10" "I10" -> I 10.
void PartNumber(Words& name) {
  static constexpr std::string_view kGlued[] = {"CR", "FM",  "HWY", "I",   "IH",
                                                "RT", "RTE", "SR",  "TSR", "US"};
  const std::string word = name[0];
  const size_t digits = std::find_if(word.begin(), word.end(), IsDigit) - word.begin();
  const bool hyphen = digits > 0 && digits < word.size() && word[digits - 1] == '-';
  const std::string_view letters = std::string_view(word).substr(0, digits - (hyphen ? 1 : 0));
  if (digits < word.size() &&
      std::find(std::begin(kGlued), std::end(kGlued), letters) != std::end(kGlued)) {
    name[0] = std::string(letters);
    name.insert(name.begin() + 1, word.substr(digits));
  }
}

// How many words at the front name a state: by its name, or by the code of the address's own.
size_t StateLength(const Words& name, std::string_view state) {
  for (size_t length = std::min<size_t>(name.size(), 4); length > 0; --length) {
    const std::string text = JoinWords(name.begin(), name.begin() + length);
    const std::string_view code = Lexicon::Get().State(text);
    if (!code.empty() && (text.size() > 2 || code == state)) {
      return length;
    }
  }
  return 0;
}

// Rewrites the highway at `at`, returns the words it has then; 0 where there is none.
size_t RewriteAt(Words& name, size_t at) {
  for (const HighwayRow& row : kHighways) {
    const size_t length = PhraseLength(name, at, row.written);
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
  PartNumber(name);
  if (const size_t length = RewriteAt(name, 0); length > 0) {
    return length;
  }
  const size_t stateLength = StateLength(name, state);
  if (stateLength == 0 || stateLength >= name.size()) {
    return 0;
  }
  const std::string code(Lexicon::Get().State(JoinWords(name.begin(), name.begin() + stateLength)));
  size_t length = RewriteAt(name, stateLength);
  if (length == 0 && !AllDigits(name[stateLength])) {
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

}  // namespace postwright::service
