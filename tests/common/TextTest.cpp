#include <gtest/gtest.h>

#include "common/Loopback.h"
#include "common/ShownText.h"
#include "common/SmallText.h"
#include "common/WideText.h"

namespace postwright {

namespace {

TEST(ShownTextTest, TakesOutWhatMovesACursorOrTurnsText) {
  const struct {
    std::string text;
    std::string shown;  // with "?" for what cannot be shown, line feeds kept
  } rows[] = {
      {"12 Main St, Pe\xC3\xB1on", "12 Main St, Pe\xC3\xB1on"},
      {"a\nb\tc\x1B[2J\x7F", "a\nb?c?[2J?"},
      {"\xC2\x9B"
       "2J\xC2\xA0",
       "?2J\xC2\xA0"},                                             // U+009B; a no-break space
      {"\xD8\x9C\xE2\x80\x8E\xE2\x80\x8F", "???"},                 // U+061C, U+200E, U+200F
      {"\xE2\x80\xAA\xE2\x80\xAE\xE2\x80\xAF", "??\xE2\x80\xAF"},  // U+202A, U+202E, no U+202F
      {"\xE2\x81\xA6\xE2\x81\xA9\xE2\x81\xAA", "??\xE2\x81\xAA"},  // U+2066, U+2069, no U+206A
      {"\xE2\x80\xA8\xE2\x80\xA9", "??"},                          // U+2028, U+2029
      {"a\xFF"
       "b\xC3",
       "a?b?"},  // no UTF-8
  };
  for (const auto& row : rows) {
    EXPECT_EQ(ShownText(row.text, "?", "\n"), row.shown);
  }
}

TEST(WideTextTest, LosesNothingOfABrokenText) {
  const std::wstring broken = {L'a', static_cast<wchar_t>(0xD800), static_cast<wchar_t>(0x110000),
                               L'\xF1'};
  EXPECT_EQ(Utf8FromAnyWide(broken), "a\xEF\xBF\xBD\xEF\xBF\xBD\xC3\xB1");
}

TEST(SmallTextTest, EscapesAndUnescapes) {
  const std::pair<std::string, std::string> rows[] = {
      {"12 Main-St._~", "12%20Main-St._~"},
      {"a&b=c%\xC3\xB1", "a%26b%3Dc%25%C3%B1"},
      {std::string(1, '\0'), "%00"},
  };
  for (const auto& [text, escaped] : rows) {
    EXPECT_EQ(EscapeQuery(text), escaped);
    EXPECT_EQ(UnescapeQuery(escaped), text);
  }
  const std::pair<std::string, std::string> odd[] = {
      {"a+b", "a b"}, {"%4a%4A", "JJ"},     {"%", "%"},
      {"%4", "%4"},   {"%4g%g4", "%4g%g4"}, {"%%41", "%A"},
  };
  for (const auto& [escaped, text] : odd) {
    EXPECT_EQ(UnescapeQuery(escaped), text);
  }
}

TEST(LoopbackTest, KnowsThisMachine) {
  for (const char* own : {"localhost", "LocalHost", "127.0.0.1", "127.255.255.254", "::1", "[::1]",
                          "::ffff:127.0.0.1", "0:0::1"}) {
    EXPECT_TRUE(IsLoopback(own)) << own;
  }
  for (const char* other : {"", "localhost.example", "128.0.0.1", "0.0.0.0", "::", "[::1",
                            "::ffff:128.0.0.1", "::2", "127.1.example", "127"}) {
    EXPECT_FALSE(IsLoopback(other)) << other;
  }
}

}  // namespace

}  // namespace postwright
