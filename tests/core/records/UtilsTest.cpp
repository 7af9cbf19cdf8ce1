#include <postwright/Utils.h>

#include <gtest/gtest.h>

namespace postwright::Utils {

using Lines = std::vector<std::wstring>;

TEST(UtilsTest, ChangesCharacters) {
  EXPECT_EQ(TrimString(L"\t A B \r\n"), L"A B");
  EXPECT_EQ(TrimString(L"\u00A0A\v"), L"\u00A0A\v");
  EXPECT_EQ(TrimString(L"   "), L"   ");  // nothing else in it: left alone
  EXPECT_EQ(ToUpper(L"4b pe\u00F1a \u00DF"), L"4B PE\u00D1A \u00DF");
}

TEST(UtilsTest, SeparatesAtEveryBreak) {
  EXPECT_EQ(SeparateStringToLines(L""), Lines{});
  EXPECT_EQ(SeparateStringToLines(L"A\r\nB\n\rC\r\rD"), (Lines{L"A", L"B", L"", L"C", L"", L"D"}));
  EXPECT_EQ(SeparateStringToLines(L"\r\nA\r"), (Lines{L"", L"A", L""}));
}

TEST(UtilsTest, JoinsByWhatStandsSoFar) {
  EXPECT_EQ(JoinStrings(Lines{L"", L"", L"A", L"", L"B", L""}, L"-", false), L"A--B-");
  EXPECT_EQ(JoinStrings(Lines{L"", L"", L"A", L"", L"B", L""}, L"-", true), L"A-B");
}

TEST(UtilsTest, NormalizesALabel) {
  EXPECT_EQ(NormalizeAddress(L" A  B \r\n\r\n C \rD\n"), L"A  B\nC\nD");
  EXPECT_EQ(NormalizeAddress(L"A\n   \nB"), L"A\n   \nB");  // a line of blanks is a line
}

}  // namespace postwright::Utils
