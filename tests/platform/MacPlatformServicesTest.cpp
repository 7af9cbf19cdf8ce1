#include <postwright/MacPlatformServices.h>

#include "tests/support/ScriptedServices.h"

#include <gtest/gtest.h>

namespace postwright {

namespace {

const std::wstring kNoCodePoint(1, static_cast<wchar_t>(0x110000));

// Sees what reaches the conversion, and converts everything to one text.
class OneTextServices final : public MacPlatformServices {
 public:
  using MacPlatformServices::UCS2ToUTF8;
  std::string UCS2ToUTF8(const wchar_t* text) override {
    seen = text;
    return "\xC3\x91";
  }
  std::wstring seen;
};

}  // namespace

TEST(MacPlatformServicesTest, ConvertsAllOrNothing) {
  MacPlatformServices services;
  EXPECT_EQ(services.UCS2ToUTF8(L"A\u00D1\u1EA4\U0001F3E0"),
            "A\xC3\x91\xE1\xBA\xA4\xF0\x9F\x8F\xA0");
  EXPECT_EQ(services.UTF8ToUCS2("A\xC3\x91\xE1\xBA\xA4\xF0\x9F\x8F\xA0"),
            L"A\u00D1\u1EA4\U0001F3E0");
  EXPECT_EQ(services.UCS2ToUTF8(nullptr), "");
  EXPECT_EQ(services.UTF8ToUCS2(nullptr), L"");
  EXPECT_EQ(services.UCS2ToUTF8(L"A\xD83C\xDFE0"), "");  // surrogates
  EXPECT_EQ(services.UTF8ToUCS2("MAIN \xC3 ST"), L"");
  EXPECT_EQ(services.UTF8ToUCS2(std::string("A\0B", 3)), L"A");
}

TEST(MacPlatformServicesTest, EscapesWhatRfc2396ForbidsInAUrl) {
  const std::wstring kRows[][2] = {
      {L"azAZ09-_.!~*'();/?:@&=+$,", L"azAZ09-_.!~*'();/?:@&=+$,"},
      {L"<>#%\"{}|\\^[]`", L"%3C%3E%23%25%22%7B%7D%7C%5C%5E%5B%5D%60"},
      {L" \x01\n\x7F\u00D1\U0001F3E0", L"%20%01%0A%7F%C3%91%F0%9F%8F%A0"},
      {L"A&amp;O&apos;B&apos;&#x09;C", L"A%26amp%3bO%26apos%3bB%26apos%3b%20C"},
      {L"&lt;&gt;&quot;&#x0A;&AMP;&#x9;", L"&lt;&gt;&quot;&%23x0A;&AMP;&%23x9;"},  // as they are
      {L"&amp;amp;", L"%26amp%3bamp;"},
      {kNoCodePoint, L""},
  };
  MacPlatformServices services;
  for (const auto& [text, escaped] : kRows) {
    EXPECT_EQ(services.UrlEscape(text), escaped);
  }
}

// In a time that grows as the square of the text's length this would take minutes.
TEST(MacPlatformServicesTest, EscapesLongTexts) {
  constexpr std::size_t kCount = 300'000;
  const auto repeat = [](const std::wstring& text) {
    std::wstring repeated;
    for (std::size_t i = 0; i < kCount; ++i) {
      repeated += text;
    }
    return repeated;
  };
  MacPlatformServices services;
  EXPECT_TRUE(services.UrlEscape(repeat(L"A&amp;&apos;&#x09;")) ==
              repeat(L"A%26amp%3b%26apos%3b%20"));
}

TEST(MacPlatformServicesTest, UnescapesIntoABoundedBuffer) {
  const std::wstring kRows[][2] = {
      {L"A%20B%26%3b+%4a%4A", L"A B&;+JJ"},
      {L"%C3%A9", L"\u00E9"},
      {L"%C3%A9%C3%A9a", L"\u00E9\u00E9"},  // two of three characters fit
      {L"a%C3%A9%C3%A9", L"a\u00E9"},
      {L"%F0%9F%8F%A0", L""},  // four bytes do not fit where two units are
      {L"AB%2", L""},
      {L"AB%zz", L""},
      {L"AB%FF", L""},
      {L"AB%F4%90%80%80", L""},
  };
  MacPlatformServices services;
  for (const auto& [text, unescaped] : kRows) {
    EXPECT_EQ(services.UrlUnescape(text.c_str()), unescaped);
  }
}

TEST(MacPlatformServicesTest, ReadsIntegers) {
  MacPlatformServices services;
  EXPECT_EQ(services.StringToInt(L" 42abc"), 42);
  EXPECT_EQ(services.StringToInt(L"-7"), -7);
  EXPECT_EQ(services.StringToInt(L"abc"), 0);
  EXPECT_EQ(services.StringToInt(L"4294967297"), 1);  // the lower 32 bits
}

TEST(MacPlatformServicesTest, FormatsLogLines) {
  ScriptedServices services("");
  services.LogError(L"%%s '%-4s' '%.2S' '%*s' %ls %d", L"\u00D1", "ab\xC3\x91", 3, L"x", L"w", 7);
  services.LogError(L"tag %S", "\xFF");  // cannot be formatted
  EXPECT_EQ(services.log,
            (std::vector<std::wstring>{L"error: %s '\u00D1   ' 'ab' '  x' w 7", L"error: "}));
}

TEST(MacPlatformServicesTest, ReplacedConversionChangesTheRest) {
  OneTextServices services;
  EXPECT_EQ(services.UrlEscape(L"A"), L"%C3%91");
  EXPECT_EQ(services.UCS2ToUTF8(std::wstring(L"A")), "\xC3\x91");
  services.LogWarning(L"server error = '%s'", L"Invalid");
  EXPECT_EQ(services.seen, L"server error = 'Invalid");  // the last character is lost
}

}  // namespace postwright
