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

std::string_view Lexicon::Find(const Table& table, std::string_view word) {
  const auto found = table.find(word);
  return found == table.end() ? std::string_view() : std::string_view(found->second);
}

const Lexicon& Lexicon::Get() {
  static const Lexicon lexicon;
  return lexicon;
}

Lexicon::Lexicon() {
  for (const VocabularyRow& row : Vocabulary::Directions()) {
    directions_.emplace(Narrow(row.written), Narrow(row.standard));
    directions_.emplace(Narrow(row.standard), Narrow(row.standard));
    spelledDirections_.emplace(Narrow(row.standard), Narrow(row.written));
  }
  for (const auto& [standard, spelled] : kSpelled) {
    spelledSuffixes_.emplace(standard, spelled);
  }
  for (const SuffixRow& row : Vocabulary::Suffixes()) {
    const std::string standard = Narrow(row.standard);
    suffixes_.emplace(standard, standard);
    std::string longest;
    for (const wchar_t* written : row.written) {
      const std::string word = Narrow(written);
      suffixes_.emplace(word, standard);
      longest = word.size() > longest.size() ? word : longest;
    }
    spelledSuffixes_.emplace(standard, longest);
  }
  FillUnits(Vocabulary::NumberedUnits(), numberedUnits_);
  numberedUnits_.emplace("PMB", "PMB");  // private mailbox, section 284
  FillUnits(Vocabulary::PlainUnits(), plainUnits_);
  for (const VocabularyRow& row : Vocabulary::States()) {
    std::string name = Narrow(row.written);
    std::erase_if(name, [](char c) { return !IsUpper(c); });
    states_.emplace(name, Narrow(row.standard));
    states_.emplace(Narrow(row.standard), Narrow(row.standard));
  }
  FillWith(Vocabulary::kOtherTypes, otherTypes_);
  FillWith(Vocabulary::kMilitaryStates, states_);
  FillWith(Vocabulary::kMilitaryStates, militaryStates_);
  FillWith(Vocabulary::kMilitaryCities, militaryCities_);
  FillWith(Vocabulary::kMilitaryUnits, militaryUnits_);
}

void Lexicon::FillWith(std::span<const std::wstring_view> words, Table& table) {
  for (const std::wstring_view word : words) {
    table.emplace(Narrow(word), Narrow(word));
  }
}

void Lexicon::FillUnits(const std::vector<VocabularyRow>& rows, Table& table) {
  for (const VocabularyRow& row : rows) {
    const std::string standard = Narrow(StandardUnit(row.standard));
    for (const std::wstring& word : UnitWords(row.written)) {
      table.emplace(Narrow(word), standard);
    }
    table.emplace(standard, standard);
  }
}

std::string_view Lexicon::Direction(std::string_view word) const {
  return Find(directions_, word);
}

std::string_view Lexicon::SpelledDirection(std::string_view standard) const {
  return Find(spelledDirections_, standard);
}

std::string_view Lexicon::Suffix(std::string_view word) const {
  return Find(suffixes_, word);
}

std::string_view Lexicon::SpelledSuffix(std::string_view standard) const {
  return Find(spelledSuffixes_, standard);
}

bool Lexicon::IsPlainType(std::string_view standardSuffix) const {
  static constexpr std::string_view kTypes[] = {"ALY", "AVE", "BLVD", "CIR",  "CT", "DR", "EXPY",
                                                "FWY", "HWY", "LN",   "PKWY", "PL", "RD", "SQ",
                                                "ST",  "TER", "TPKE", "TRL",  "WAY"};
  return std::find(std::begin(kTypes), std::end(kTypes), standardSuffix) != std::end(kTypes);
}

bool Lexicon::IsOtherType(std::string_view word) const {
  return otherTypes_.contains(word);
}

std::string_view Lexicon::NumberedUnit(std::string_view word) const {
  return Find(numberedUnits_, word);
}

std::string_view Lexicon::PlainUnit(std::string_view word) const {
  return Find(plainUnits_, word);
}

std::string_view Lexicon::State(std::string_view nameOrCode) const {
  std::string letters(nameOrCode);
  std::erase(letters, ' ');
  return Find(states_, letters);
}

bool Lexicon::IsMilitaryState(std::string_view code) const {
  return !Find(militaryStates_, code).empty();
}

bool Lexicon::IsMilitaryCity(std::string_view city) const {
  return !Find(militaryCities_, city).empty();
}

bool Lexicon::IsMilitaryUnit(std::string_view word) const {
  return !Find(militaryUnits_, word).empty();
}

}  // namespace postwright::postal
