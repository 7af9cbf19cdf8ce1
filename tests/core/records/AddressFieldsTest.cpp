#include <postwright/AddressFields.h>

#include <gtest/gtest.h>

namespace postwright {

TEST(AddressFieldsTest, ComposesTheLinesOfALabel) {
  const struct {
    const char* name;
    AddressFields fields;
    std::wstring whole;
    std::wstring inner;  // without prefix and suffix
  } kRows[] = {
      {"empty", {}, L"", L""},
      {"all",
       {L"A\nB", L"C", L"D", L"E", L"F", L"G", L"H"},
       L"A\nB\nC\nD\nE, F G\nH",
       L"C\nD\nE, F G"},
      {"some", {L"", L"C", L"", L"E", L"F", L"G", L""}, L"C\nE, F G", L"C\nE, F G"},
      {"city line", {L"A", L"", L"", L"", L"", L"", L""}, L"A\n,  ", L",  "},  // always there
      {"blanks", {L"", L" ", L"", L"", L"", L"", L" "}, L" \n,  \n ", L" \n,  "},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(row.fields.ComposeAddressBlock(), row.whole);
    EXPECT_EQ(row.fields.ComposeAddressBlock(false), row.inner);
    EXPECT_EQ(row.fields.IsEmpty(), row.whole.empty());
  }
}

}  // namespace postwright
