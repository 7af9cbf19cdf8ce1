#include "postal/words/Lexicon.h"

#include <algorithm>

#include "common/AsciiText.h"
#include "core/parser/UnitWords.h"

namespace postwright::postal {
namespace {

using Vocabulary::SuffixRow;
using Vocabulary::VocabularyRow;

// The vocabulary is ASCII throughout.
std::string Narrow(std::wstring_view wide) {
  std::string narrow;
  std::transform(wide.begin(), wide.end(), std::back_inserter(narrow),
                 [](wchar_t c) { return static_cast<char>(c); });
  return narrow;
}

// The written form that names a suffix in full is the longest, but for these (appendix C1).
constexpr std::pair<const char*, const char*> kSpelled[] = {
    {"ALY", "ALLEY"},   {"BYU", "BAYOU"},    {"OVAL", "OVAL"},   {"SMT", "SUMMIT"},
    {"FRST", "FOREST"}, {"HOLW", "HOLLOW"},  {"ISLE", "ISLE"},   {"LN", "LANE"},
    {"LOOP", "LOOP"},   {"PARK", "PARK"},    {"PATH", "PATH"},   {"PIKE", "PIKE"},
    {"PLNS", "PLAINS"}, {"PKWY", "PARKWAY"}, {"RNCH", "RANCH"},  {"SHR", "SHORE"},
    {"SHRS", "SHORES"}, {"SPUR", "SPUR"},    {"TRAK", "TRACK"},  {"TRCE", "TRACE"},
    {"TRL", "TRAIL"},   {"TUNL", "TUNNEL"},  {"VLG", "VILLAGE"}, {"WALK", "WALK"},
    {"WAY", "WAY"},     {"EXT", "EXTENSION"}};

}  // namespace

void Lexicon::Table::Add(std::string_view word, std::string_view standard) {
  words_.emplace(word, standard);
  shapes_.set(ShapeOf(word));
}

std::string_view Lexicon::Table::Find(std::string_view word) const {
  if (!shapes_.test(ShapeOf(word))) {
    return {};
  }
  const auto found = words_.find(word);
  return found == words_.end() ? std::string_view() : std::string_view(found->second);
}

size_t Lexicon::Table::ShapeOf(std::string_view word) {
  if (word.empty()) {
    return 0;
  }
  const auto letter = [](char c) { return static_cast<unsigned char>(c) % 32U; };
  return (letter(word.front()) * 32 + letter(word.back()) + word.size() * 83) % kShapes;
}

const Lexicon& Lexicon::Get() {
  static const Lexicon lexicon;
  return lexicon;
}

Lexicon::Lexicon() {
  for (const VocabularyRow& row : Vocabulary::Directions()) {
    directions_.Add(Narrow(row.written), Narrow(row.standard));
    directions_.Add(Narrow(row.standard), Narrow(row.standard));
    spelledDirections_.Add(Narrow(row.standard), Narrow(row.written));
  }
  for (const auto& [standard, spelled] : kSpelled) {
    spelledSuffixes_.Add(standard, spelled);
  }
  for (const SuffixRow& row : Vocabulary::Suffixes()) {
    const std::string standard = Narrow(row.standard);
    suffixes_.Add(standard, standard);
    std::string longest;
    for (const wchar_t* written : row.written) {
      const std::string word = Narrow(written);
      suffixes_.Add(word, standard);
      longest = word.size() > longest.size() ? word : longest;
    }
    spelledSuffixes_.Add(standard, longest);
  }
  FillUnits(Vocabulary::NumberedUnits(), numberedUnits_);
  numberedUnits_.Add("PMB", "PMB");  // private mailbox, section 284
  FillUnits(Vocabulary::PlainUnits(), plainUnits_);
  for (const VocabularyRow& row : Vocabulary::States()) {
    std::string name = Narrow(row.written);
    std::erase_if(name, [](char c) { return !IsUpper(c); });
    states_.Add(name, Narrow(row.standard));
    states_.Add(Narrow(row.standard), Narrow(row.standard));
  }
  FillWith(Vocabulary::kMilitaryStates, states_);
  FillWith(Vocabulary::kMilitaryStates, militaryStates_);
  FillWith(Vocabulary::kMilitaryCities, militaryCities_);
  FillWith(Vocabulary::kMilitaryUnits, militaryUnits_);
}

void Lexicon::FillWith(std::span<const std::wstring_view> words, Table& table) {
  for (const std::wstring_view word : words) {
    table.Add(Narrow(word), Narrow(word));
  }
}

void Lexicon::FillUnits(const std::vector<VocabularyRow>& rows, Table& table) {
  for (const VocabularyRow& row : rows) {
    const std::string standard = Narrow(StandardUnit(row.standard));
    for (const std::wstring& word : UnitWords(row.written)) {
      table.Add(Narrow(word), standard);
    }
    table.Add(standard, standard);
  }
}

std::string_view Lexicon::Direction(std::string_view word) const {
  return directions_.Find(word);
}

std::string_view Lexicon::SpelledDirection(std::string_view standard) const {
  return spelledDirections_.Find(standard);
}

std::string_view Lexicon::Suffix(std::string_view word) const {
  return suffixes_.Find(word);
}

std::string_view Lexicon::SpelledSuffix(std::string_view standard) const {
  return spelledSuffixes_.Find(standard);
}

bool Lexicon::IsPlainType(std::string_view standardSuffix) const {
  static constexpr std::string_view kTypes[] = {"ALY", "AVE", "BLVD", "CIR",  "CT", "DR", "EXPY",
                                                "FWY", "HWY", "LN",   "PKWY", "PL", "RD", "SQ",
                                                "ST",  "TER", "TPKE", "TRL",  "WAY"};
  return std::find(std::begin(kTypes), std::end(kTypes), standardSuffix) != std::end(kTypes);
}

std::string_view Lexicon::NumberedUnit(std::string_view word) const {
  return numberedUnits_.Find(word);
}

std::string_view Lexicon::PlainUnit(std::string_view word) const {
  return plainUnits_.Find(word);
}

std::string_view Lexicon::State(std::string_view nameOrCode) const {
  std::string letters(nameOrCode);
  std::erase(letters, ' ');
  return states_.Find(letters);
}

bool Lexicon::IsMilitaryState(std::string_view code) const {
  return !militaryStates_.Find(code).empty();
}

bool Lexicon::IsMilitaryCity(std::string_view city) const {
  return !militaryCities_.Find(city).empty();
}

bool Lexicon::IsMilitaryUnit(std::string_view word) const {
  return !militaryUnits_.Find(word).empty();
}

}  // namespace postwright::postal
