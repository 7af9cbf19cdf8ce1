#include <postwright/FixedAddress.h>

#include <gtest/gtest.h>

namespace postwright {

TEST(FixedAddressTest, OffersWhatTheResultVouchesFor) {
  const auto address = [](const wchar_t* street) {
    return AddressFields(L"", street, L"", L"", L"", L"", L"");
  };
  const auto match = [&](const wchar_t* street, const wchar_t* bound) {
    return AddressMatch(address(street), AddressRangeTypeNone, L"", L"", AddressRangeTypeNone,
                        bound, bound, L"S");
  };
  const AddressFields none, exact = address(L"X");
  const AddressMatch a = match(L"A", L""), b = match(L"B", L""), range = match(L"R", L"1");
  const struct {
    FixedAddress fixed;
    bool matchesValid;
    std::wstring byDefault, exactly;
  } kRows[] = {
      {{FixResultDefaultMatch, exact, {}}, false, L"X\n,  ", L"X\n,  "},
      {{FixResultExactMatch, exact, {a}}, true, L"X\n,  ", L"X\n,  "},
      {{FixResultExactMatch, none, {a}}, true, L"A\n,  ", L"A\n,  "},
      {{FixResultMultipleMatch, none, {a, b}}, true, L"A\n,  ", L""},
      {{FixResultDefaultMatch, none, {range, b}}, true, L"B\n,  ", L""},
      {{FixResultMultipleMatch, none, {range}}, true, L"", L""},
      {{FixResultInvalidAddress, none, {a}}, false, L"", L"A\n,  "},
      {{FixResultStreetMismatch, none, {a, b}}, false, L"", L""},
      {{FixResultMultipleMatch, none, {}}, false, L"", L""},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(&row - kRows);
    EXPECT_EQ(row.fixed.IsAddressMatchesValid(), row.matchesValid);
    EXPECT_EQ(row.fixed.GetDefaultAddress(), row.byDefault);
    EXPECT_EQ(row.fixed.GetExactAddress(), row.exactly);
  }
}

}  // namespace postwright
