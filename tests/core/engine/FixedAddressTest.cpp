#include <postwright/FixedAddress.h>

#include <gtest/gtest.h>

namespace postwright {

namespace {

AddressMatch Street(const std::wstring& street, const std::wstring& low = L"") {
  return AddressMatch(AddressFields(L"", street, L"", L"AUSTIN", L"TX", L"78701", L""),
                      AddressRangeTypeNone, L"", L"", AddressRangeTypeNone, low, low, L"S");
}

TEST(FixedAddressTest, OffersWhatTheResultVouchesFor) {
  const AddressFields none;
  const AddressFields exact(L"", L"12 OAK ST", L"", L"AUSTIN", L"TX", L"78701", L"");
  const AddressMatch a = Street(L"1 A ST");
  const AddressMatch b = Street(L"2 B ST");
  const AddressMatch range = Street(L"3 C ST", L"1");
  const struct {
    const char* name;
    FixedAddress fixed;
    bool matchesValid;
    std::wstring byDefault;  // street lines
    std::wstring exactly;
  } kRows[] = {
      {"corrected", {FixResultDefaultMatch, exact, {}}, false, L"12 OAK ST", L"12 OAK ST"},
      {"corrected, and candidates",
       {FixResultExactMatch, exact, {a}},
       true,
       L"12 OAK ST",
       L"12 OAK ST"},
      {"one candidate", {FixResultExactMatch, none, {a}}, true, L"1 A ST", L"1 A ST"},
      {"two candidates", {FixResultMultipleMatch, none, {a, b}}, true, L"1 A ST", L""},
      {"a range first", {FixResultDefaultMatch, none, {range, b}}, true, L"2 B ST", L""},
      {"a range alone", {FixResultMultipleMatch, none, {range}}, true, L"", L""},
      {"a result that does not vouch", {FixResultInvalidAddress, none, {a}}, false, L"", L"1 A ST"},
      {"street mismatch", {FixResultStreetMismatch, none, {a, b}}, false, L"", L""},
      {"nothing", {FixResultMultipleMatch, none, {}}, false, L"", L""},
  };
  const auto block = [](const std::wstring& street) {
    return street.empty() ? street : street + L"\nAUSTIN, TX 78701";
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(row.fixed.IsAddressMatchesValid(), row.matchesValid);
    EXPECT_EQ(row.fixed.GetDefaultAddress(), block(row.byDefault));
    EXPECT_EQ(row.fixed.GetExactAddress(), block(row.exactly));
  }
}

}  // namespace

}  // namespace postwright
