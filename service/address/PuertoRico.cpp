#include "service/address/PuertoRico.h"

#include <algorithm>
#include <string_view>

#include "service/address/Phrase.h"

namespace postwright::service {
namespace {

struct TypeRow {
  std::string_view written;
  std::string_view standard;
};

constexpr TypeRow kTypes[] = {
    {"AVE", "AVE"},       {"AVENIDA", "AVE"},    {"BLVD", "BLVD"},         {"BULEVAR", "BLVD"},
    {"CALETA", "CALETA"}, {"CALLE", "CALLE"},    {"CALLEJON", "CALLEJON"}, {"CAMINO", "CAMINO"},
    {"CARR", "CARR"},     {"CARRETERA", "CARR"}, {"MARGINAL", "MARGINAL"}, {"PARQUE", "PARQUE"},
    {"PASAJE", "PASAJE"}, {"PASEO", "PASEO"},    {"PATIO", "PATIO"},       {"PLAZA", "PLAZA"},
    {"VEREDA", "VEREDA"}, {"VIA", "VIA"},        {"VISTA", "VISTA"},
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

// "BLQ 199 CASA 31" in front becomes the number 199-31.
void JoinBlock(Words& words) {
  if (words.size() < 4 || !Is(words[0], kBlocks) || !HasDigit(words[1])) {
    return;
  }
  const size_t house = Is(words[2], kAnnouncers) ? 3 : 2;
  if (AllDigits(words[1]) && AllDigits(words[house])) {
    words[0] = words[1] + "-" + words[house];
    words.erase(words.begin() + 1, words.begin() + house + 1);
  }
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

std::string StandardUrbanization(const Words& words) {
  Words standard = words;
  if (!standard.empty() && standard[0] == "URBANIZACION") {
    standard[0] = "URB";
  }
  return JoinWords(standard);
}

bool IsUrbanization(const Words& words) {
  return words.size() > 1 && (words[0] == "URB" || words[0] == "URBANIZACION");
}

}  // namespace postwright::service
