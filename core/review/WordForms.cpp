#include "core/review/WordForms.h"

#include <algorithm>
#include <array>
#include <cwctype>

#include "core/parser/UnitWords.h"
#include "core/review/Digits.h"
#include "core/review/LabelWords.h"
#include "core/review/NumberWords.h"
#include "core/review/StateNames.h"

namespace postwright {

namespace {

constexpr std::size_t kLongestWord = 64;

// What a name's words are short for, but for those that the tables of suffixes and directionals
// have (MT, FT, HTS).
constexpr std::pair<const wchar_t*, const wchar_t*> kCommon[] = {
    {L"ST", L"SAINT"},
    {L"SAINT", L"SAINT"},
    {L"STE", L"SAINTE"},
    {L"SAINTE", L"SAINTE"},
    {L"CNTY", L"COUNTY"},
    {L"CO", L"COUNTY"},
    {L"COUNTY", L"COUNTY"},
    {L"RT", L"ROUTE"},
    {L"RTE", L"ROUTE"},
    {L"ROUTE", L"ROUTE"},
    {L"TWP", L"TOWNSHIP"},
    {L"TOWNSHIP", L"TOWNSHIP"},
    {L"INTL", L"INTERNATIONAL"},
    {L"INTERNATIONAL", L"INTERNATIONAL"},
    {L"CARRETERA", L"CARR"},
    {L"CARR", L"CARR"},
    {L"AVENIDA", L"AVE"},
    {L"AVE", L"AVE"},
    {L"BOULEVARD", L"BLVD"},
    {L"BLVD", L"BLVD"},
    {L"URBANIZACION", L"URB"},
    {L"URB", L"URB"},
    {L"DOCTOR", L"DR"},
    {L"DR", L"DR"},
    {L"JUNIOR", L"JR"},
    {L"JR", L"JR"},
    {L"AND", L"AND"}};

std::wstring Ordinal(std::size_t number) {
  const std::size_t last = number % 10;
  const bool teens = number / 10 % 10 == 1;
  const wchar_t* const ending = teens || last == 0 || last > 3 ? L"TH"
                                : last == 1                    ? L"ST"
                                : last == 2                    ? L"ND"
                                                               : L"RD";
  return std::to_wstring(number) + ending;
}

}  // namespace

const WordForms& WordForms::Get() {
  static const WordForms forms;
  return forms;
}

WordForms::WordForms() {
  for (const Vocabulary::VocabularyRow& row : Vocabulary::Directions()) {
    directions_.emplace(row.written, row.standard);
    directions_.emplace(row.standard, row.standard);
  }
  for (const Vocabulary::SuffixRow& row : Vocabulary::Suffixes()) {
    suffixes_.emplace(row.standard, row.standard);
    for (const wchar_t* const written : row.written) {
      suffixes_.emplace(written, row.standard);
    }
  }
  AddUnits(Vocabulary::NumberedUnits(), numbered_);
  numbered_.emplace(L"PMB", L"PMB");  // private mailbox, section 284
  AddUnits(Vocabulary::PlainUnits(), plain_);
  for (const Vocabulary::VocabularyRow& row : Vocabulary::States()) {
    std::wstring name = row.written;
    std::erase_if(name, [](wchar_t c) { return c < L'A' || c > L'Z'; });
    states_.emplace(name, row.standard);
    states_.emplace(row.standard, row.standard);
  }
  for (const Vocabulary::VocabularyRow& row : OlderStateForms()) {
    std::wstring name = row.written;
    std::erase(name, L' ');
    states_.emplace(name, row.standard);
  }
  for (const std::wstring_view military : Vocabulary::kMilitaryStates) {
    states_.emplace(military, military);
  }
  for (const auto& [word, common] : kCommon) {
    common_.emplace(word, common);
  }
  for (std::size_t i = 1; i < kCardinals.size(); ++i) {
    numbers_.emplace(kCardinals[i], std::to_wstring(i));
    numbers_.emplace(kOrdinals[i], Ordinal(i));
  }
  for (std::size_t ten = 2; ten < kTens.size(); ++ten) {
    const std::wstring stem(kTens[ten], std::wstring_view(kTens[ten]).size() - 1);
    numbers_.emplace(stem + L"IETH", Ordinal(10 * ten));
    for (std::size_t one = 1; one < 10; ++one) {
      numbers_.emplace(std::wstring(kTens[ten]) + kOrdinals[one], Ordinal(10 * ten + one));
    }
  }
}

void WordForms::AddUnits(const std::vector<Vocabulary::VocabularyRow>& rows, Table& table) {
  for (const Vocabulary::VocabularyRow& row : rows) {
    const std::wstring standard(StandardUnit(row.standard));
    for (const std::wstring& word : UnitWords(row.written)) {
      table.emplace(word, standard);
    }
    table.emplace(standard, standard);
  }
}

std::wstring WordForms::Number(std::wstring_view word) const {
  if (word.empty() || word.size() > kLongestWord) {
    return {};
  }
  if (IsDigit(word.front())) {
    const std::size_t first = word.find_first_not_of(L'0');
    return std::wstring(first == std::wstring_view::npos ? L"0" : word.substr(first));
  }
  return std::wstring(Find(numbers_, word));
}

bool WordForms::IsMisspeltSuffix(std::wstring_view word, std::wstring_view standard) const {
  constexpr std::size_t kShortest = 4;
  if (word.size() < kShortest || !Suffix(word).empty()) {
    return false;
  }
  for (const Vocabulary::SuffixRow& row : Vocabulary::Suffixes()) {
    if (row.standard == standard) {
      return std::any_of(row.written.begin(), row.written.end(), [word](const wchar_t* written) {
        return std::wstring_view(written).size() >= kShortest && IsOneLetterApart(word, written);
      });
    }
  }
  return false;
}

bool IsOneLetterApart(std::wstring_view one, std::wstring_view other) {
  if (one.size() > other.size()) {
    std::swap(one, other);
  }
  if (other.size() > kLongestWord || other.size() - one.size() > 1) {
    return false;
  }
  const auto start = static_cast<std::size_t>(
      std::mismatch(one.begin(), one.end(), other.begin()).first - one.begin());
  if (one.size() < other.size()) {
    return one.substr(start) == other.substr(start + 1);
  }
  if (start == one.size()) {
    return false;
  }
  return one.substr(start + 1) == other.substr(start + 1) ||
         (start + 1 < one.size() && one[start] == other[start + 1] &&
          one[start + 1] == other[start] && one.substr(start + 2) == other.substr(start + 2));
}

std::size_t LettersApart(std::wstring_view one, std::wstring_view other) {
  if (std::max(one.size(), other.size()) > kLongestWord) {
    return std::max(one.size(), other.size());
  }
  std::vector<std::size_t> before(other.size() + 1);
  std::vector<std::size_t> above(other.size() + 1);
  std::vector<std::size_t> row(other.size() + 1);
  for (std::size_t j = 0; j <= other.size(); ++j) {
    row[j] = j;
  }
  for (std::size_t i = 1; i <= one.size(); ++i) {
    std::swap(before, above);
    std::swap(above, row);
    row[0] = i;
    for (std::size_t j = 1; j <= other.size(); ++j) {
      row[j] = std::min(
          {above[j] + 1, row[j - 1] + 1, above[j - 1] + (one[i - 1] == other[j - 1] ? 0 : 1)});
      if (i > 1 && j > 1 && one[i - 1] == other[j - 2] && one[i - 2] == other[j - 1]) {
        row[j] = std::min(row[j], before[j - 2] + 1);
      }
    }
  }
  return row.back();
}

}  // namespace postwright
