#include "core/review/StateNames.h"

#include <map>
#include <vector>

namespace postwright {

namespace {

struct Known {
  std::wstring code;
  bool isRead;
};
using Names = std::map<std::wstring, Known, std::less<>>;

constexpr Vocabulary::VocabularyRow kOlderForms[] = {
    {L"ALA", L"AL"},   {L"ALAS", L"AK"},  {L"ARIZ", L"AZ"},
    {L"ARK", L"AR"},   {L"CAL", L"CA"},   {L"CALIF", L"CA"},
    {L"COLO", L"CO"},  {L"CONN", L"CT"},  {L"DEL", L"DE"},
    {L"FLA", L"FL"},   {L"IDA", L"ID"},   {L"ILL", L"IL"},
    {L"ILLS", L"IL"},  {L"IND", L"IN"},   {L"KAN", L"KS"},
    {L"KANS", L"KS"},  {L"MASS", L"MA"},  {L"MICH", L"MI"},
    {L"MINN", L"MN"},  {L"MISS", L"MS"},  {L"MONT", L"MT"},
    {L"NEB", L"NE"},   {L"NEBR", L"NE"},  {L"NEV", L"NV"},
    {L"N MEX", L"NM"}, {L"N DAK", L"ND"}, {L"N CAR", L"NC"},
    {L"OKLA", L"OK"},  {L"ORE", L"OR"},   {L"OREG", L"OR"},
    {L"PENN", L"PA"},  {L"PENNA", L"PA"}, {L"S CAR", L"SC"},
    {L"S DAK", L"SD"}, {L"TENN", L"TN"},  {L"TEX", L"TX"},
    {L"W VA", L"WV"},  {L"WASH", L"WA"},  {L"WIS", L"WI"},
    {L"WISC", L"WI"},  {L"WYO", L"WY"},   {L"MARSHALL ISLANDS", L"MH"},
};

Names CollectNames() {
  Names names;
  const auto addCode = [&names](const std::wstring& code) {
    names.try_emplace(code, Known{code, true});
    names.try_emplace({code[0], L' ', code[1]}, Known{code, false});
  };
  for (const Vocabulary::VocabularyRow& row : Vocabulary::States()) {
    std::wstring name = row.written;
    std::erase(name, L'\\');
    addCode(row.standard);
    names.try_emplace(name, Known{row.standard, name != L"MARSHALL ISLANDS"});
  }
  for (const std::wstring_view code : Vocabulary::kMilitaryStates) {
    addCode(std::wstring(code));
  }
  for (const Vocabulary::VocabularyRow& row : kOlderForms) {
    names.try_emplace(row.written, Known{row.standard, false});
  }
  return names;
}

// The words at the end of `text`, the last first, and where each begins: letters, with blanks and
// full stops alone between them.
std::vector<std::size_t> LastWords(std::wstring_view text, std::size_t most) {
  const auto isLetter = [](wchar_t c) { return c >= L'A' && c <= L'Z'; };
  std::vector<std::size_t> begins;
  std::size_t at = text.size();
  while (begins.size() < most) {
    while (at > 0 && (text[at - 1] == L' ' || text[at - 1] == L'.')) {
      --at;
    }
    const std::size_t end = at;
    while (at > 0 && isLetter(text[at - 1])) {
      --at;
    }
    const bool joined = at > 0 && text[at - 1] > L' ' &&
                        std::wstring_view(L",.;:(/-").find(text[at - 1]) == std::wstring_view::npos;
    if (at == end || joined) {
      break;
    }
    begins.push_back(at);
  }
  return begins;
}

// `text` with one blank between its words, and no full stop.
std::wstring JoinWords(std::wstring_view text) {
  std::wstring joined;
  for (const wchar_t c : text) {
    if (c != L' ' && c != L'.') {
      joined += c;
    } else if (!joined.empty() && joined.back() != L' ') {
      joined += L' ';
    }
  }
  while (!joined.empty() && joined.back() == L' ') {
    joined.pop_back();
  }
  return joined;
}

}  // namespace

std::span<const Vocabulary::VocabularyRow> OlderStateForms() {
  return kOlderForms;
}

StateAtEnd FindStateAtEnd(std::wstring_view text) {
  static const Names kNames = CollectNames();
  constexpr std::size_t kLongestName = 4;  // FEDERATED STATES OF MICRONESIA
  const std::vector<std::size_t> begins = LastWords(text, kLongestName);
  for (std::size_t words = begins.size(); words > 0; --words) {
    const std::wstring_view written = text.substr(begins[words - 1]);
    const std::wstring joined = JoinWords(written);
    const auto found = kNames.find(joined);
    if (found != kNames.end()) {
      return {begins[words - 1], found->second.code, found->second.isRead && joined == written};
    }
  }
  return {text.size(), L"", false};
}

}  // namespace postwright
