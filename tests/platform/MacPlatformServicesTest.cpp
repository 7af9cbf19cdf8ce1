#include <postwright/MacPlatformServices.h>

#include <gtest/gtest.h>

namespace postwright {

namespace {

struct TextCase {
  const char* name;
  std::wstring text;
  std::wstring expected;
};

TEST(MacPlatformServicesTest, ConvertsAllOrNothing) {
  const struct {
    const char* name;
    std::wstring wide;
    std::string utf8;
  } kBothWays[] = {
      {"ascii", L"12 MAIN ST", "12 MAIN ST"},
      {"two bytes", L"PE\u00D1A",
       "PE\xC3\x91"
       "A"},
      {"three bytes", L"\u1EA4", "\xE1\xBA\xA4"},
      {"beyond 16 bits", L"\U0001F3E0", "\xF0\x9F\x8F\xA0"},
      {"empty", L"", ""},
  };
  MacPlatformServices services;
  for (const auto& row : kBothWays) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(services.UCS2ToUTF8(row.wide), row.utf8);
    EXPECT_EQ(services.UTF8ToUCS2(row.utf8), row.wide);
  }
  EXPECT_EQ(services.UCS2ToUTF8(nullptr), "");
  EXPECT_EQ(services.UTF8ToUCS2(nullptr), L"");
  EXPECT_EQ(services.UCS2ToUTF8(std::wstring(L"AB\xD83C\xDFE0", 4)), "");  // surrogates
  EXPECT_EQ(services.UTF8ToUCS2("MAIN \xC3 ST"), L"");
  EXPECT_EQ(services.UTF8ToUCS2(std::string("A\0B", 3)), L"A");
}

TEST(MacPlatformServicesTest, EscapesWhatRfc2396ForbidsInAUrl) {
  const TextCase kRows[] = {
      {"unreserved", L"azAZ09-_.!~*'()", L"azAZ09-_.!~*'()"},
      {"reserved", L";/?:@&=+$,", L";/?:@&=+$,"},
      {"delimiters", L"<>#%\"", L"%3C%3E%23%25%22"},
      {"unwise", L"{}|\\^[]`", L"%7B%7D%7C%5C%5E%5B%5D%60"},
      {"blank and controls", L" \x01\n\x7F", L"%20%01%0A%7F"},
      {"other letters", L"\u00D1\U0001F3E0", L"%C3%91%F0%9F%8F%A0"},
      {"ampersand entity", L"A&amp;B", L"A%26amp%3bB"},
      {"apostrophe entity", L"O&apos;NEIL&apos;S", L"O%26apos%3bNEIL%26apos%3bS"},
      {"tab reference", L"A&#x09;B", L"A%20B"},
      {"other references stay", L"&lt;&gt;&quot;&#x0A;", L"&lt;&gt;&quot;&%23x0A;"},
      {"case counts", L"&AMP;&#x9;", L"&AMP;&%23x9;"},
      {"an escaped entity once", L"&amp;amp;", L"%26amp%3bamp;"},
      {"no code point", std::wstring(1, static_cast<wchar_t>(0x110000)), L""},
      {"empty", L"", L""},
  };
  MacPlatformServices services;
  for (const TextCase& row : kRows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(services.UrlEscape(row.text), row.expected);
  }
}

TEST(MacPlatformServicesTest, UnescapesIntoABoundedBuffer) {
  const TextCase kRows[] = {
      {"ascii", L"A%20B%26%3b+", L"A B&;+"},
      {"both cases of digits", L"%4a%4A", L"JJ"},
      {"one letter of two bytes fits", L"%C3%A9", L"\u00E9"},
      {"two of three units fit", L"%C3%A9%C3%A9a", L"\u00E9\u00E9"},
      {"wherever they stand", L"a%C3%A9%C3%A9", L"a\u00E9"},
      {"two units of four bytes do not", L"%F0%9F%8F%A0", L""},
      {"broken escape", L"AB%2", L""},
      {"no digits", L"AB%zz", L""},
      {"not UTF-8", L"AB%FF", L""},
      {"no code point", L"AB%F4%90%80%80", L""},
  };
  MacPlatformServices services;
  for (const TextCase& row : kRows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(services.UrlUnescape(row.text.c_str()), row.expected);
  }
}

TEST(MacPlatformServicesTest, ReadsIntegers) {
  MacPlatformServices services;
  EXPECT_EQ(services.StringToInt(L" 42abc"), 42);
  EXPECT_EQ(services.StringToInt(L"-7"), -7);
  EXPECT_EQ(services.StringToInt(L"abc"), 0);
  EXPECT_EQ(services.StringToInt(L"4294967297"), 1);  // the lower 32 bits
}

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

TEST(MacPlatformServicesTest, ReplacedConversionChangesTheRest) {
  OneTextServices services;
  EXPECT_EQ(services.UrlEscape(L"A"), L"%C3%91");
  EXPECT_EQ(services.UCS2ToUTF8(std::wstring(L"A")), "\xC3\x91");
  services.LogWarning(L"server error = '%s'", L"Invalid");
  EXPECT_EQ(services.seen, L"server error = 'Invalid");  // the last character is lost
}

}  // namespace

}  // namespace postwright
