#include <postwright/AddressMatch.h>
#include <postwright/RangeFit.h>

#include <gtest/gtest.h>

namespace postwright {

TEST(AddressMatchTest, PutsRangesAndValuesWhereTheirNumbersBelong) {
  const struct {
    const wchar_t *street, *primaryLow, *primaryHigh, *secondaryLow, *secondaryHigh, *recordType;
    const wchar_t *shown, *pattern, *chosen;  // street lines; chosen are 999 and 1C
  } kRows[] = {
      {L"A ST", L"1", L"9", L"", L"", L"S", L"(1 - 9) A ST", L"%@ A ST", L"999 A ST"},
      {L"2 A ST", L"", L"", L"1", L"9", L"H", L"2 A ST (1 - 9)", L"2 A ST %@", L"2 A ST 1C"},
      {L"A ST", L"1", L"9", L"B", L"D", L"", L"(1 - 9) A ST (B - D)", L"%@ A ST %@",
       L"999 A ST 1C"},
      {L"A ST", L"1", L"", L"", L"9", L"S", L"A ST", L"A ST", L"A ST"},
      {L"BOX", L"1", L"9", L"", L"", L"P", L"BOX (1 - 9)", L"BOX %@", L"BOX 999"},
      {L"BOX", L"1", L"9", L"B", L"D", L"P", L"BOX (1 - 9)", L"BOX %@", L"BOX 999"},
      {L"BOX 7", L"", L"", L"1", L"9", L"P", L"BOX 7", L"BOX 7", L"BOX 7"},
      {L"BOX", L"1", L"9", L"", L"", L"p", L"(1 - 9) BOX", L"%@ BOX", L"999 BOX"},
      {L"BOX", L"1", L"9", L"", L"", L"PP", L"(1 - 9) BOX", L"%@ BOX", L"999 BOX"},
  };
  for (const auto& row : kRows) {
    const std::wstring city = L"\nC, S Z";
    SCOPED_TRACE(testing::PrintToString(row.shown));
    const AddressMatch match(
        {L"JANE", row.street, L"", L"C", L"S", L"Z", L"USA"}, AddressRangeType(-7), row.primaryLow,
        row.primaryHigh, AddressRangeTypeNone, row.secondaryLow, row.secondaryHigh, row.recordType);
    EXPECT_EQ(match.GetAddressTemplate(false), row.shown + city);
    EXPECT_EQ(match.GetAddressTemplate(true), L"JANE\n" + (row.shown + city) + L"\nUSA");
    EXPECT_EQ(match.GetAddressPattern(false), row.pattern + city);
    EXPECT_EQ(match.ComposeAddressForRechecking(L"999", L"1C"),
              L"JANE\n" + (row.chosen + city) + L"\nUSA");
    EXPECT_EQ(match.ComposeAddressForRechecking2(L"", L"")->GetPrimaryStreet(), row.street);
    EXPECT_EQ(match.GetPrimaryType(), -7);  // any value is kept
  }
}

TEST(RangeFitTest, TellsWhatLiesInARange) {
  const struct {
    const wchar_t *value, *low, *high;
    AddressRangeType type;
    RangeFit fit;
  } kRows[] = {
      {L"100", L"100", L"198", AddressRangeTypeEven, RangeFitInside},
      {L" 198 ", L"100", L"198", AddressRangeTypeEven, RangeFitInside},
      {L"98", L"100", L"198", AddressRangeTypeEven, RangeFitOutside},
      {L"200", L"100", L"198", AddressRangeTypeEven, RangeFitOutside},
      {L"1000", L"100", L"198", AddressRangeTypeEven, RangeFitOutside},
      {L"121", L"100", L"198", AddressRangeTypeEven, RangeFitParity},
      {L"121", L"100", L"198", AddressRangeTypeBoth, RangeFitInside},
      {L"120", L"101", L"199", AddressRangeTypeOdd, RangeFitParity},
      {L"102b", L"100", L"198", AddressRangeTypeEven, RangeFitInside},
      {L"158AA", L"100", L"198", AddressRangeTypeEven, RangeFitOutside},
      {L"13 1/2", L"1", L"99", AddressRangeTypeOdd, RangeFitInside},
      {L"99 1/2", L"1", L"99", AddressRangeTypeOdd, RangeFitOutside},
      {L"112-10", L"112-02", L"112-98", AddressRangeTypeEven, RangeFitInside},
      {L"113-10", L"112-02", L"112-98", AddressRangeTypeEven, RangeFitOutside},
      {L"10", L"112-02", L"112-98", AddressRangeTypeEven, RangeFitOutside},
      {L"1d", L"1A", L"1F", AddressRangeTypeNone, RangeFitInside},
      {L"1G", L"1A", L"1F", AddressRangeTypeNone, RangeFitOutside},
      {L"1", L"1A", L"1F", AddressRangeTypeNone, RangeFitOutside},
      {L"2B", L"1A", L"3A", AddressRangeTypeNone, RangeFitOutside},
      {L"c", L"A", L"F", AddressRangeTypeNone, RangeFitInside},
      {L"5", L"A", L"F", AddressRangeTypeNone, RangeFitOutside},
      {L"", L"1", L"6", AddressRangeTypeNone, RangeFitOutside},
      {L"99999999999999999999", L"1", L"6", AddressRangeTypeNone, RangeFitOutside},
      {L"3", L"1", L"99999999999999999999", AddressRangeTypeNone, RangeFitOutside},
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(FitOfRange(row.value, row.low, row.high, row.type), row.fit)
        << testing::PrintToString(row.value);
  }
}

}  // namespace postwright
