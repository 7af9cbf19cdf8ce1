#include "postal/lines/PuertoRico.h"

#include <algorithm>
#include <string_view>

#include "postal/words/Phrase.h"

namespace postwright::postal {
namespace {

struct TypeRow {
  std::string_view written;
  std::string_view standard;
};

constexpr TypeRow kTypes[] = {
    {"AVE", "AVE"},       {"AVENIDA", "AVE"},   {"BLVD", "BLVD"},      {"BOULEVARD", "BLVD"},
    {"BULEVAR", "BLVD"},  {"CALETA", "CALETA"}, {"CALLE", "CALLE"},    {"CALLEJON", "CALLEJON"},
    {"CAMINO", "CAMINO"}, {"CARR", "CARR"},     {"CARRETERA", "CARR"}, {"MARGINAL", "MARGINAL"},
    {"PARQUE", "PARQUE"}, {"PASAJE", "PASAJE"}, {"PASEO", "PASEO"},    {"PATIO", "PATIO"},
    {"PLAZA", "PLAZA"},   {"VEREDA", "VEREDA"}, {"VIA", "VIA"},        {"VISTA", "VISTA"},
};

constexpr std::string_view kAnnouncers[] = {"#", "CASA", "LOTE", "NO", "NUM", "NUMERO"};
constexpr std::string_view kBlocks[] = {"BLOQUE", "BLQ"};

bool Is(const std::string& word, std::span<const std::string_view> words) {
  return std::find(words.begin(), words.end(), word) != words.end();
}

// A block letter with its house, "A-17", is written in one.
std::string WithoutHyphenBehindLetter(const std::string& number) {
  return number.size() > 2 && IsUpper(number[0]) && number[1] == '-' && IsDigit(number[2])
             ? number[0] + number.substr(2)
             : number;
}

// "BLQ 199 CASA 31", in front or after the street, becomes the number 199-31 in front, "BLQ A CASA
// 5" A5.
void JoinBlock(Words& words) {
  const auto block = std::find_if(words.begin(), words.end(),
                                  [](const std::string& word) { return Is(word, kBlocks); });
  if (words.end() - block < 3) {
    return;
  }
  const auto house = block + (Is(block[2], kAnnouncers) ? 3 : 2);
  const bool isLetter = block[1].size() == 1 && AllLetters(block[1]);
  if (house >= words.end() || !AllDigits(*house) || (!AllDigits(block[1]) && !isLetter)) {
    return;
  }
  const std::string number = block[1] + (isLetter ? "" : "-") + *house;
  words.erase(block, house + 1);
  words.insert(words.begin(), number);
}

// Leaves out the words that announce a number, one or several in front of it.
Words WithoutAnnouncers(const Words& words) {
  Words kept;
  for (auto word = words.rbegin(); word != words.rend(); ++word) {
    if (!Is(*word, kAnnouncers) || kept.empty() || !HasDigit(kept.back())) {
      kept.push_back(*word);
    }
  }
  std::reverse(kept.begin(), kept.end());
  return kept;
}

}  // namespace

Words ArrangePuertoRico(Words words) {
  JoinBlock(words);
  const auto type = std::find_if(words.begin(), words.end(), [](const std::string& word) {
    return !SpanishType(word).empty();
  });
  if (type == words.end()) {
    return words;
  }
  Words arranged = WithoutAnnouncers(words);
  if (!SpanishType(arranged.front()).empty() && arranged.size() > 2 && HasDigit(arranged.back())) {
    std::rotate(arranged.begin(), arranged.end() - 1, arranged.end());
  }
  arranged.front() = WithoutHyphenBehindLetter(arranged.front());
  return arranged;
}

std::string SpanishType(const std::string& word) {
  for (const TypeRow& row : kTypes) {
    if (row.written == word) {
      return std::string(row.standard);
    }
  }
  return {};
}

std::optional<BoxLine> ReadKilometre(const Words& given) {
  constexpr std::string_view kGlued = "KM";
  constexpr size_t kFewest = 4;
  Words words = given;
  if (words.size() + 1 >= kFewest && words[2].starts_with(kGlued) && words[2].size() > 2) {
    words[2].erase(0, kGlued.size());
    words.insert(words.begin() + 2, std::string(kGlued));
  }
  const bool isRoad = words.size() >= kFewest && SpanishType(words[0]) == "CARR" &&
                      IsDigit(words[1][0]) && words[2] == kGlued && IsDigit(words[3][0]);
  if (!isRoad) {
    return std::nullopt;
  }
  words[0] = "CARR";
  return BoxLine{words, {}};
}

Words StandardUrbanization(Words words) {
  if (!words.empty() && words[0] == "URBANIZACION") {
    words[0] = "URB";
  }
  return words;
}

// Its name ends where the street begins: at a number in front of a type that no such name has, or
// at the type itself.
Words TakeUrbanization(Words& line) {
  static constexpr std::string_view kTypesOfStreets[] = {"AVE", "AVENIDA", "CALLE", "CARR"};
  const auto type = std::find_if(line.begin(), line.end(),
                                 [](const std::string& word) { return Is(word, kTypesOfStreets); });
  if (!IsUrbanization(line) || type == line.end()) {
    return {};
  }
  const auto street = HasDigit(*(type - 1)) ? type - 1 : type;
  if (street - line.begin() < 2) {
    return {};
  }
  const Words urbanization(line.begin(), street);
  line.erase(line.begin(), street);
  return urbanization;
}

bool IsUrbanization(const Words& words) {
  return words.size() > 1 && (words[0] == "URB" || words[0] == "URBANIZACION");
}

}  // namespace postwright::postal
