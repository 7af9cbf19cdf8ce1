#ifndef POSTWRIGHT_CORE_RECORDS_RANGEFIT_H_
#define POSTWRIGHT_CORE_RECORDS_RANGEFIT_H_

#include <postwright/AddressMatch.h>
#include <postwright/Export.h>

#include <cstdint>
#include <string>

namespace postwright {

// How a number that a person has chosen fits a range of an AddressMatch.
enum RangeFit : std::int32_t {
  RangeFitInside = 0,
  RangeFitOutside = 1,  // below the low end or above the high one, or written differently
  RangeFitParity = 2,   // between the ends, on the other side of the street
};

// Says how `value`, a whole number as it is written, fits the range from `low` to `high`. `type`
// tells the side of the street; for any but AddressRangeTypeOdd and AddressRangeTypeEven there is
// none. Case and blanks around do not count.
//
//   FitOfRange(L"120", L"100", L"198", AddressRangeTypeEven);   // RangeFitInside
//   FitOfRange(L"121", L"100", L"198", AddressRangeTypeEven);   // RangeFitParity
//   FitOfRange(L"1d", L"1A", L"1F", AddressRangeTypeNone);      // RangeFitInside
//
// One letter or a fraction after a number does not take it out of a range of plain numbers, but
// what comes before it, as the block of 112-10, must be that of the ends (USPS Publication 28,
// appendix E). Ends that have no order stand for themselves alone. Pure, for any thread.
POSTWRIGHT_CORE_EXPORT RangeFit FitOfRange(const std::wstring& value, const std::wstring& low,
                                           const std::wstring& high, AddressRangeType type);

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_RECORDS_RANGEFIT_H_
