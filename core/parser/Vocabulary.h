#ifndef POSTWRIGHT_CORE_PARSER_VOCABULARY_H_
#define POSTWRIGHT_CORE_PARSER_VOCABULARY_H_

#include <array>
#include <string_view>
#include <vector>

// The postal words that Postwright knows, as USPS Publication 28 has them, all upper case: the
// parser builds its patterns and its lookups from them, the local Verify service its standard form.
// Constant data; any thread may read it at any time.
namespace postwright::Vocabulary {

struct VocabularyRow {
  const wchar_t* written;   // a word, or pattern text where the table says so
  const wchar_t* standard;  // its standard form
};

struct SuffixRow {
  const wchar_t* standard;
  std::vector<const wchar_t*> written;  // never the standard form itself
};

const std::vector<VocabularyRow>& Directions();     // 8 rows, plain words
const std::vector<VocabularyRow>& States();         // 59 rows; names with escaped blanks
const std::vector<SuffixRow>& Suffixes();           // 188 rows, 362 written forms, plain words
const std::vector<VocabularyRow>& NumberedUnits();  // 16 rows, patterns
const std::vector<VocabularyRow>& PlainUnits();     // 9 rows, patterns

// USPS Publication 28, appendix C1: street types and forms of types that the grammar does not know.
inline constexpr std::array<std::wstring_view, 15> kOtherTypes = {
    L"CAUSWA", L"COMMONS", L"CROSSROADS", L"FALL", L"LAND",   L"MALL", L"MEWS", L"PASS",
    L"RAMP",   L"ROW",     L"RUE",        L"RUN",  L"SHOALS", L"WALL", L"WAYS"};

// USPS Publication 28, section 225: what a military address has for a state (AA, AE, AP), for a
// city (APO, DPO, FPO) and in front of its unit's number (PSC, CMR, UNIT).
inline constexpr std::wstring_view kMilitaryStates[] = {L"AA", L"AE", L"AP"};
inline constexpr std::wstring_view kMilitaryCities[] = {L"APO", L"DPO", L"FPO"};
inline constexpr std::wstring_view kMilitaryUnits[] = {L"CMR", L"PSC", L"UNIT"};

}  // namespace postwright::Vocabulary

#endif  // POSTWRIGHT_CORE_PARSER_VOCABULARY_H_
