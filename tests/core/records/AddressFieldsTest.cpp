#include <postwright/AddressFields.h>

#include <gtest/gtest.h>

namespace postwright {

namespace {

TEST(AddressFieldsTest, ComposesTheLinesOfALabel) {
  const struct {
    const char* name;
    AddressFields fields;
    std::wstring whole;
    std::wstring inner;  // without prefix and suffix
  } kRows[] = {
      {"empty", {}, L"", L""},
      {"every field",
       {L"JANE DOE\nACME", L"12 CALLE 1", L"URB LAS FLORES", L"PONCE", L"PR", L"00716-1234",
        L"USA"},
       L"JANE DOE\nACME\n12 CALLE 1\nURB LAS FLORES\nPONCE, PR 00716-1234\nUSA",
       L"12 CALLE 1\nURB LAS FLORES\nPONCE, PR 00716-1234"},
      {"empty fields leave no line",
       {L"", L"12 MAIN ST", L"", L"AUSTIN", L"TX", L"78701", L""},
       L"12 MAIN ST\nAUSTIN, TX 78701",
       L"12 MAIN ST\nAUSTIN, TX 78701"},
      {"the city line is always there",
       {L"JANE", L"", L"", L"", L"", L"", L""},
       L"JANE\n,  ",
       L",  "},
      {"blanks are text", {L"", L" ", L"", L"", L"", L"", L" "}, L" \n,  \n ", L" \n,  "},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(row.fields.ComposeAddressBlock(), row.whole);
    EXPECT_EQ(row.fields.ComposeAddressBlock(false), row.inner);
    EXPECT_EQ(row.fields.IsEmpty(), row.whole.empty());
  }
}

}  // namespace

}  // namespace postwright
