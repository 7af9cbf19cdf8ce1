#include <postwright/Utils.h>

#include <gtest/gtest.h>

namespace postwright {

namespace {

using Lines = std::vector<std::wstring>;

TEST(UtilsTest, TrimsItsFourCharactersAtTheEnds) {
  EXPECT_EQ(Utils::TrimString(L"\t A B \r\n"), L"A B");
  EXPECT_EQ(Utils::TrimString(L"\u00A0A\v"), L"\u00A0A\v");
  EXPECT_EQ(Utils::TrimString(L"   "), L"   ");  // nothing else in it: left alone
  EXPECT_EQ(Utils::TrimString(L""), L"");
}

TEST(UtilsTest, UpperCasesCharacterByCharacter) {
  EXPECT_EQ(Utils::ToUpper(L"12 main st apt 4b, pe\u00F1a, \u00DF"),
            L"12 MAIN ST APT 4B, PE\u00D1A, \u00DF");
}

TEST(UtilsTest, SeparatesAtEveryBreak) {
  const struct {
    std::wstring text;
    Lines lines;
  } kRows[] = {
      {L"", {}},
      {L"A", {L"A"}},
      {L"A\r\nB", {L"A", L"B"}},
      {L"A\n\rB", {L"A", L"", L"B"}},
      {L"A\r\rB", {L"A", L"", L"B"}},
      {L"A\n", {L"A", L""}},
      {L"\r\n", {L"", L""}},
      {L"A\r", {L"A", L""}},
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(Utils::SeparateStringToLines(row.text), row.lines)
        << testing::PrintToString(row.text);
  }
}

TEST(UtilsTest, JoinsByWhatStandsSoFar) {
  const struct {
    Lines strings;
    std::wstring all;
    std::wstring withoutEmpty;
  } kRows[] = {
      {{}, L"", L""},
      {{L"A", L"B"}, L"A-B", L"A-B"},
      {{L"", L"", L"A"}, L"A", L"A"},
      {{L"A", L"", L"B"}, L"A--B", L"A-B"},
      {{L"A", L""}, L"A-", L"A"},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(testing::PrintToString(row.strings));
    EXPECT_EQ(Utils::JoinStrings(row.strings, L"-", false), row.all);
    EXPECT_EQ(Utils::JoinStrings(row.strings, L"-", true), row.withoutEmpty);
  }
}

TEST(UtilsTest, NormalizesALabel) {
  EXPECT_EQ(Utils::NormalizeAddress(L"  John  Smith \r\n\r\n PO Box 12 \rSpringfield\n"),
            L"John  Smith\nPO Box 12\nSpringfield");
  EXPECT_EQ(Utils::NormalizeAddress(L"A\n   \nB"), L"A\n   \nB");  // a line of blanks is a line
  EXPECT_EQ(Utils::NormalizeAddress(L"\n\n"), L"");
}

}  // namespace

}  // namespace postwright
