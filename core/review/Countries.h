#ifndef POSTWRIGHT_CORE_REVIEW_COUNTRIES_H_
#define POSTWRIGHT_CORE_REVIEW_COUNTRIES_H_

#include <string_view>

namespace postwright {

// Is `text`, in upper case, a name of the United States: "USA", "U.S.A.", "United States"?
bool IsUnitedStates(std::wstring_view text);

// Is `text`, in upper case, the name of another country and nothing else? Georgia is a state, and
// Micronesia, the Marshall Islands and Palau have ZIP codes.
bool IsForeignCountry(std::wstring_view text);

// Does `text`, in upper case, end in a postal code of Canada, such as K1A 0B1?
bool EndsInCanadianCode(std::wstring_view text);

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_REVIEW_COUNTRIES_H_
