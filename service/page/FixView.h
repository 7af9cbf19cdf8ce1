#ifndef POSTWRIGHT_SERVICE_PAGE_FIXVIEW_H_
#define POSTWRIGHT_SERVICE_PAGE_FIXVIEW_H_

#include <postwright/CorrectionReview.h>

#include <string>
#include <string_view>
#include <vector>

#include "core/label/CarefulFix.h"

// How a page shows what became of a label. Pure, for any thread; what is returned is HTML.
namespace postwright::service::fixview {

// A status in words, by its code as CodeOf or a table has it.
std::string_view WordsOf(std::string_view statusCode);

// A status with its sign.
std::string Badge(std::string_view statusCode);

// A text with what goes away struck out, or what is new underlined; `review` explains it.
std::string Typed(std::wstring_view text, const CorrectionReview& review);
std::string Corrected(std::wstring_view text, const CorrectionReview& review);

// Each change with its rule; empty where there is none.
std::string Changes(const CorrectionReview& review);

// How far the address was confirmed, and by whom; empty where nobody said anything of that.
std::string Confirmed(const CarefulFix& fix);

// Where the label of a candidate that stands for many addresses wants a house or box number, and
// where a unit: characters of the private use area, which no address has.
inline constexpr wchar_t kNumberPlace = 0xE000;
inline constexpr wchar_t kUnitPlace = 0xE001;

// The answer for one label: all of the above, the reason, and what could have been meant, each with
// a button that asks about it.
std::string Answer(std::wstring_view typed, const CarefulFix& fix);

}  // namespace postwright::service::fixview

#endif  // POSTWRIGHT_SERVICE_PAGE_FIXVIEW_H_
