#include "platform/LogFormat.h"

#include <gtest/gtest.h>

namespace postwright {

namespace {

std::wstring Format(const wchar_t* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  const std::wstring text = FormatLogMessage(format, arguments);
  va_end(arguments);
  return text;
}

TEST(LogFormatTest, TakesWideForSmallAndNarrowForCapitalS) {
  EXPECT_EQ(Format(L"'%s' and '%S'", L"Pe\u00F1a", "Pe\u00C3\u00B1a"), L"'Pe\u00F1a' and 'PeÃ±a'");
  EXPECT_EQ(Format(L"'%-4s' '%.2S' '%*s'", L"ab", "abcd", 3, L"x"), L"'ab  ' 'ab' '  x'");
  EXPECT_EQ(Format(L"%ls %hs %d%% %c %5.2f", L"w", "n", 7, 'c', 1.5), L"w n 7% c  1.50");
  EXPECT_EQ(Format(L"%%s %s", L"x"), L"%s x");
}

TEST(LogFormatTest, GivesNothingForWhatCannotBeFormatted) {
  EXPECT_EQ(Format(L""), L"");
  EXPECT_EQ(Format(L"tag %S", "\xFF"), L"");
}

}  // namespace

}  // namespace postwright
