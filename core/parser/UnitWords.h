#ifndef POSTWRIGHT_CORE_PARSER_UNITWORDS_H_
#define POSTWRIGHT_CORE_PARSER_UNITWORDS_H_

#include <string>
#include <string_view>
#include <vector>

namespace postwright {

// Lists the words that a pattern of Vocabulary::NumberedUnits() or PlainUnits() stands for, for
// those who look words up instead of searching a text: L"SU?I?TE" gives SUITE, SUTE, SITE and STE.
// The patterns know letters, groups, `?` and `*` alone; an asterisk is taken to mean up to two, as
// in FLOOR. Each word is in the list at least once.
std::vector<std::wstring> UnitWords(std::wstring_view pattern);

// Returns the standard abbreviation of USPS Publication 28, appendix C2, for what the vocabulary
// answers: the two differ in SPACE, which is SPC.
std::wstring_view StandardUnit(std::wstring_view answer);

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_PARSER_UNITWORDS_H_
