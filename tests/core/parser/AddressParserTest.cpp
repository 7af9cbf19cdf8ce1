#include "tests/core/parser/LabelGenerator.h"
#include "tests/core/parser/PlainParser.h"

#include <postwright/AddressParser.h>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <cwchar>
#include <fstream>
#include <functional>

namespace postwright {

namespace {

std::string Narrow(const std::wstring& text) {
  std::string bytes(text.size() * 4, '\0');
  const wchar_t* from = text.c_str();
  std::mbstate_t state{};
  bytes.resize(std::wcsrtombs(bytes.data(), &from, bytes.size(), &state));
  return bytes;
}

std::wstring Widen(const std::string& bytes) {
  std::wstring text(bytes.size(), L'\0');
  const char* from = bytes.c_str();
  std::mbstate_t state{};
  text.resize(std::mbsrtowcs(text.data(), &from, text.size(), &state));
  return text;
}

nlohmann::json ToJson(const AddressInfo& info) {
  nlohmann::json fields = nlohmann::json::object();
  const auto add = [&fields](const char* key, const std::wstring& value) {
    if (!value.empty()) {
      fields[key] = Narrow(value);
    }
  };
  add("prefix", info.prefix);
  add("number", info.number);
  add("predirectional", info.predirectional);
  add("street", info.street);
  add("street_suffix", info.streetSuffix);
  add("postdirectional", info.postdirectional);
  add("secondary_unit", info.secondaryUnit);
  add("secondary_number", info.secondaryNumber);
  add("street_line", info.streetLine);
  add("city", info.city);
  add("state", info.state);
  add("zip", info.zip);
  add("suffix", info.suffix);
  return fields;
}

AddressInfo Parse(const std::wstring& text) {
  return AddressParser::GetInstance()->Parse(text);
}

std::wstring Repeat(const std::wstring& text, size_t count) {
  std::wstring all;
  while (count-- > 0) {
    all += text;
  }
  return all;
}

}  // namespace

// Whole labels, one a line, so that a label from a user becomes a test without any C++.
TEST(AddressParserTest, ReadsLabels) {
  std::ifstream file(POSTWRIGHT_TEST_DATA "/labels.jsonl");
  int labels = 0;
  for (std::string line; std::getline(file, line); ++labels) {
    const nlohmann::json row = nlohmann::json::parse(line);
    SCOPED_TRACE(row.at("name").get<std::string>());
    EXPECT_EQ(ToJson(Parse(Widen(row.at("label").get<std::string>()))), row.at("fields"));
  }
  EXPECT_GT(labels, 40);
}

TEST(AddressParserTest, AnswersWhatThePlainSearchesAnswer) {
  LabelGenerator generator(20261125);
  const std::function<std::wstring()> kinds[] = {
      [&generator] { return generator.Address(); },
      [&generator] { return generator.Mixture(); },
      [&generator] { return generator.Noise(); },
  };
  int found = 0;
  for (int text = 0; text < 3000 && !HasFailure(); ++text) {
    const std::wstring label = kinds[text % 3]();
    const AddressInfo info = Parse(label);
    EXPECT_EQ(ToJson(info), ToJson(ParsePlainly(label))) << Narrow(label);
    found += info.zip.empty() ? 0 : 1;
  }
  EXPECT_GT(found, 1000);  // else the texts would show nothing
}

// Each of these keeps the pattern engine busy for seconds or hours. The test runner's time limit is
// the only clock: a parser that relapses fails by not returning.
TEST(AddressParserTest, ComesBackFromEveryText) {
  const std::wstring address = L"12 MAIN ST\nAUSTIN TX 78701";
  const std::wstring blanks = Repeat(L" ", 100'000);
  const std::wstring digits = Repeat(L"7", 100'000);
  const std::wstring words = Repeat(L"A ", 50'000);
  const struct {
    const char* name;
    std::wstring text;
    std::wstring streetLine;
  } kTexts[] = {
      {"many lines above", Repeat(L"JANE DOE AND SONS\n", 5'000) + address, L"12 MAIN ST"},
      {"digits and blanks without a ZIP", Repeat(L"12345 ", 20'000), L""},
      {"blanks after a number", L"5" + blanks + L"A, Z, Y, " + address, L"12 MAIN ST"},
      {"blanks after a box", L"BOX 1" + blanks + L"5, " + address, L"12 MAIN ST"},
      {"words after a number", L"12 " + words + L", 5, Z, " + address, L"12 MAIN ST"},
      {"digits in front", digits + L", X, Y, " + address, L"12 MAIN ST"},
      {"blanks inside the street", L"5 A" + blanks + L"B 7 SPRINGFIELD IL 62701", L"5 A B 7"},
      {"blanks before the city", L"12 MAIN ST" + blanks + L"AUSTIN TX 78701", L"12 MAIN ST"},
      {"blanks inside the city", L"12 MAIN ST\nNEW" + blanks + L"YORK NY 10001", L"12 MAIN ST"},
      {"a house number of digits", digits + L" MAIN ST AUSTIN TX 78701", digits + L" MAIN ST"},
      {"a unit of one letter", L"12 A FL" + Repeat(L"O", 50'000) + L" 3 AUSTIN TX 78701",
       L"12 A FL 3"},
      {"commas", Repeat(L"5,", 50'000) + address, L"5 12 MAIN ST"},
      {"states and ZIPs", Repeat(L"5 A IL 62701 ", 20'000), L"5 A IL 62701 5"},
  };
  for (const auto& row : kTexts) {
    SCOPED_TRACE(row.name);
    const std::wstring line = Parse(row.text).streetLine;
    EXPECT_TRUE(line == row.streetLine) << Narrow(line.substr(0, 200));
  }
}

}  // namespace postwright
