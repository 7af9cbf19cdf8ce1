#include <postwright/AddressMatch.h>

#include <gtest/gtest.h>

namespace postwright {

namespace {

AddressMatch Match(const std::wstring& street, const std::wstring& primaryLow,
                   const std::wstring& primaryHigh, const std::wstring& secondaryLow,
                   const std::wstring& secondaryHigh, const std::wstring& recordType) {
  const AddressFields fields(L"JANE", street, L"", L"AUSTIN", L"TX", L"78701", L"USA");
  return AddressMatch(fields, AddressRangeTypeNone, primaryLow, primaryHigh, AddressRangeTypeNone,
                      secondaryLow, secondaryHigh, recordType);
}

TEST(AddressMatchTest, ShowsRangesWhereTheirNumbersBelong) {
  const struct {
    const char* name;
    AddressMatch match;
    std::wstring shown;  // the street line
    std::wstring pattern;
  } kRows[] = {
      {"houses", Match(L"MAIN ST", L"100", L"198", L"", L"", L"S"), L"(100 - 198) MAIN ST",
       L"%@ MAIN ST"},
      {"units", Match(L"100 MAIN ST", L"", L"", L"1", L"20", L"H"), L"100 MAIN ST (1 - 20)",
       L"100 MAIN ST %@"},
      {"both", Match(L"MAIN ST", L"100", L"198", L"1A", L"1F", L""),
       L"(100 - 198) MAIN ST (1A - 1F)", L"%@ MAIN ST %@"},
      {"box", Match(L"PO BOX", L"1", L"99", L"", L"", L"P"), L"PO BOX (1 - 99)", L"PO BOX %@"},
      {"a box has no units", Match(L"PO BOX 7", L"", L"", L"1", L"9", L"P"), L"PO BOX 7",
       L"PO BOX 7"},
      {"a box with both", Match(L"PO BOX", L"1", L"99", L"1", L"9", L"P"), L"PO BOX (1 - 99)",
       L"PO BOX %@"},
      {"no box in lower case", Match(L"PO BOX", L"1", L"99", L"", L"", L"p"), L"(1 - 99) PO BOX",
       L"%@ PO BOX"},
      {"no box of two letters", Match(L"PO BOX", L"1", L"99", L"", L"", L"PP"), L"(1 - 99) PO BOX",
       L"%@ PO BOX"},
      {"one bound", Match(L"MAIN ST", L"100", L"", L"", L"9", L""), L"MAIN ST", L"MAIN ST"},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    const std::wstring city = L"\nAUSTIN, TX 78701";
    EXPECT_EQ(row.match.GetAddressTemplate(false), row.shown + city);
    EXPECT_EQ(row.match.GetAddressTemplate(true), L"JANE\n" + row.shown + city + L"\nUSA");
    EXPECT_EQ(row.match.GetAddressPattern(false), row.pattern + city);
    EXPECT_EQ(row.match.GetAddressPattern(true), L"JANE\n" + row.pattern + city + L"\nUSA");
  }
}

TEST(AddressMatchTest, PutsChosenValuesInForRechecking) {
  const AddressMatch house = Match(L"MAIN ST", L"100", L"198", L"1A", L"1F", L"S");
  const AddressMatch box = Match(L"PO BOX", L"1", L"99", L"1", L"9", L"P");
  const AddressMatch plain = Match(L"12 MAIN ST", L"", L"", L"", L"", L"S");
  const struct {
    const char* name;
    const AddressMatch& match;
    std::wstring primary;
    std::wstring secondary;
    std::wstring street;
  } kRows[] = {
      {"both", house, L"120", L"1C", L"120 MAIN ST 1C"},
      {"no unit chosen", house, L"120", L"", L"120 MAIN ST"},
      {"no house chosen", house, L"", L"1C", L"MAIN ST 1C"},
      {"outside the bounds", house, L"999", L"%@", L"999 MAIN ST %@"},
      {"box", box, L"7", L"3", L"PO BOX 7"},
      {"no range to fill", plain, L"7", L"3", L"12 MAIN ST"},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(row.match.ComposeAddressForRechecking(row.primary, row.secondary),
              L"JANE\n" + row.street + L"\nAUSTIN, TX 78701\nUSA");
    EXPECT_EQ(
        row.match.ComposeAddressForRechecking2(row.primary, row.secondary)->GetPrimaryStreet(),
        row.street);
  }
}

TEST(AddressMatchTest, CarriesAnyRangeType) {
  EXPECT_EQ(AddressMatch().GetPrimaryType(), AddressRangeTypeNone);
  EXPECT_EQ(AddressMatch().GetSecondaryType(), AddressRangeTypeNone);
  const AddressMatch match({}, AddressRangeType(-7), L"", L"", AddressRangeType(9), L"", L"", L"");
  EXPECT_EQ(match.GetPrimaryType(), -7);
  EXPECT_EQ(match.GetSecondaryType(), 9);
}

}  // namespace

}  // namespace postwright
