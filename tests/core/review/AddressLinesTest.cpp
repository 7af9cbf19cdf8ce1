#include <postwright/AddressLines.h>

#include "common/WideText.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <fstream>
#include <iostream>
#include <map>

namespace postwright {

namespace {

const std::map<AddressRespelling, std::string> kRules = {
    {AddressRespellingState, "state"},
    {AddressRespellingComma, "comma"},
    {AddressRespellingZip, "zip"},
    {AddressRespellingZipLine, "zip-line"},
    {AddressRespellingUnitLine, "unit-line"},
    {AddressRespellingUnit, "unit"},
    {AddressRespellingBox, "box"},
    {AddressRespellingHouseNumber, "house-number"},
    {AddressRespellingMilitary, "military"},
    {AddressRespellingDirectional, "directional"},
    {AddressRespellingNumberBehind, "number-behind"},
    {AddressRespellingCity, "city"}};

// A row of the table, without its name and label; empty members are left out.
nlohmann::json ToJson(const AddressLines& lines) {
  nlohmann::json row = nlohmann::json::object();
  const auto add = [&row](const char* key, const std::wstring& value) {
    if (!value.empty()) {
      row[key] = Utf8FromWide(value);
    }
  };
  if (lines.GetOutcome() == AddressLinesUnclear) {
    row["unclear"] = true;
    return row;
  }
  if (lines.GetOutcome() == AddressLinesLeftAlone) {
    row["reason"] = CodeOfReason(lines.GetReason());
    return row;
  }
  add("above", lines.GetAbove());
  add("question", lines.GetQuestion());
  add("between", lines.GetBetween());
  add("below", lines.GetBelow());
  for (const RespelledWords& words : lines.GetRespellings()) {
    row["respelled"].push_back(
        {kRules.at(words.rule), Utf8FromWide(words.typed), Utf8FromWide(words.asked)});
  }
  return row;
}

}  // namespace

TEST(AddressLinesTest, FindsTheAddressOfEachLabel) {
  std::ifstream file(POSTWRIGHT_TEST_DATA "/address-lines.jsonl");
  int labels = 0;
  for (std::string line; std::getline(file, line); ++labels) {
    const nlohmann::json row = nlohmann::json::parse(line);
    SCOPED_TRACE(row.at("name").get<std::string>());
    const std::wstring label = WideFromUtf8(row.at("label").get<std::string>());
    const AddressLines lines(label);
    nlohmann::json expected = row;
    expected.erase("name");
    expected.erase("label");
    EXPECT_EQ(ToJson(lines), expected);
    EXPECT_TRUE(lines.GetAbove() + lines.GetRun() + lines.GetBelow() == label);
    if (lines.GetOutcome() != AddressLinesFound) {
      continue;
    }
    // Put back, the other words surround the answer, and looking again finds the same question.
    const std::wstring put = lines.PutBack(lines.GetQuestion());
    const AddressLines again(put);
    EXPECT_EQ(Utf8FromWide(again.GetQuestion()), Utf8FromWide(lines.GetQuestion()));
    EXPECT_EQ(Utf8FromWide(again.PutBack(again.GetQuestion())), Utf8FromWide(put));
    if (row.at("label").get<std::string>().find('\n') != std::string::npos) {
      EXPECT_TRUE(put.starts_with(lines.GetAbove()) && put.ends_with(lines.GetBelow()));
    }
  }
  EXPECT_GT(labels, 80);
}

TEST(AddressLinesTest, PutsTheAnswerInThePlaceOfTheAddress) {
  const std::wstring answer = L"12 MAIN ST APT 4\nAUSTIN TX 78701";
  const struct {
    std::wstring label;
    std::wstring put;
  } rows[] = {
      {L"Jo\n12 Main St\nApt 4\nAustin TX 78701\nRing",
       L"Jo\n12 MAIN ST APT 4\nAUSTIN TX 78701\nRing"},
      {L"12 Main St\nAttn: Jo\nAustin TX 78701\nRing",
       L"12 MAIN ST APT 4\nAttn: Jo\nAUSTIN TX 78701\nRing"},
      {L"12 Main St\r\nAttn: Jo\r\nDesk Two\r\nAustin TX 78701",
       L"12 MAIN ST APT 4\r\nAttn: Jo\r\nDesk Two\r\nAUSTIN TX 78701"},
      {L"Jo, 12 Main St, Austin, TX 78701", L"Jo\n12 MAIN ST APT 4\nAUSTIN TX 78701"},
      {L"Jo / 12 Main St / Austin TX 78701 \u2022 Ring",
       L"Jo\n12 MAIN ST APT 4\nAUSTIN TX 78701\nRing"},
      {L"\n12 Main St, Austin, TX 78701, USA\n", L"\n12 MAIN ST APT 4\nAUSTIN TX 78701\nUSA\n"},
      {L"12 Main St, Austin, TX 78701\r\n", L"12 MAIN ST APT 4\r\nAUSTIN TX 78701\r\n"},
      {L"RR 3 Box 14\nSpringfield IL 62701", L"RR 3 Box 14\nSpringfield IL 62701"},
      {L"ring twice", answer},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(Utf8FromWide(AddressLines(row.label).PutBack(answer)), Utf8FromWide(row.put));
  }
}

TEST(AddressLinesTest, PutsTheLetterBackToItsNumber) {
  const AddressLines lines(L"Jo\n352a Lincoln Way Apt 4\nAustin TX 78701");
  const struct {
    std::wstring answer;
    std::wstring put;
  } rows[] = {
      {L"352 A LINCOLN WAY APT 4\nAUSTIN TX 78701", L"Jo\n352A LINCOLN WAY APT 4\nAUSTIN TX 78701"},
      {L"352 a Lincoln Way\nAustin TX 78701", L"Jo\n352a Lincoln Way\nAustin TX 78701"},
      {L"352 AVENUE A\nAUSTIN TX 78701", L"Jo\n352 AVENUE A\nAUSTIN TX 78701"},
      {L"352 LINCOLN WAY APT A\nAUSTIN TX 78701", L"Jo\n352 LINCOLN WAY APT A\nAUSTIN TX 78701"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(Utf8FromWide(lines.PutBack(row.answer)), Utf8FromWide(row.put));
  }
}

TEST(AddressLinesTest, FindsThreeLinesOverEveryCity) {
  std::ifstream file(POSTWRIGHT_ZIPS);
  int cities = 0;
  for (std::string line; std::getline(file, line); ++cities) {
    const std::wstring row = WideFromUtf8(line);
    const std::size_t tab = row.find(L'\t');
    const std::size_t next = row.find(L'\t', tab + 1);
    const std::wstring zip = row.substr(0, tab);
    const std::wstring city = row.substr(tab + 1, next - tab - 1);
    const std::wstring state = row.substr(next + 1);
    const bool military = state[0] == L'A' && (state == L"AA" || state == L"AE" || state == L"AP");
    const std::wstring street = military ? L"PSC 12 Box 4" : L"12 Main Street\nApt 4";
    const std::wstring asked = military ? L"PSC 12 Box 4" : L"12 Main Street, Apt 4,";
    const std::wstring place = L"\n" + city + L", " + state + L" " + zip;
    const AddressLines lines(L"Jane 2 Doe\n" + street + place + L"\nRing twice");
    EXPECT_EQ(Utf8FromWide(lines.GetRun()), Utf8FromWide(street + place));
    EXPECT_EQ(Utf8FromWide(lines.GetQuestion()), Utf8FromWide(asked + place));
  }
  EXPECT_GT(cities, 40'000);
}

}  // namespace postwright
