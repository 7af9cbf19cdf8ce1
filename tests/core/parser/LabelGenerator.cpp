#include "tests/core/parser/LabelGenerator.h"

#include <string_view>

namespace postwright {

namespace {

constexpr const wchar_t* kWords[] = {L"12",
                                     L"5",
                                     L"123",
                                     L"12A",
                                     L"12-B",
                                     L"12-3",
                                     L"12-34",
                                     L"12 1/2",
                                     L"121/2",
                                     L"12-1/2",
                                     L"1/2",
                                     L"N12W345",
                                     L"N 12 W 345",
                                     L"S5 E7",
                                     L"0",
                                     L"00000",
                                     L"1234567",
                                     L"3RD",
                                     L"1A",
                                     L"61N",
                                     L"E",
                                     L"N",
                                     L"S.",
                                     L"N.E.",
                                     L"NE",
                                     L"WEST",
                                     L"SOUTH",
                                     L"NORTHWEST",
                                     L"MAIN",
                                     L"OAK",
                                     L"BROADWAY",
                                     L"HIGHWAY 61",
                                     L"42ND ST",
                                     L"CO.",
                                     L"JOHN",
                                     L"SMITH",
                                     L"A",
                                     L"B",
                                     L"ST",
                                     L"ST.",
                                     L"AVE",
                                     L"AVENUE",
                                     L"KEY",
                                     L"FORT",
                                     L"ST APT",
                                     L"APT",
                                     L"APARTMENT 4",
                                     L"APTMENT",
                                     L"FL 3",
                                     L"FLOOR",
                                     L"FLOOOR 2",
                                     L"FLO",
                                     L"RM",
                                     L"ROOM 12",
                                     L"#",
                                     L"# 5",
                                     L"#5-B",
                                     L":APT 3",
                                     L":#9",
                                     L":",
                                     L"REAR",
                                     L"PH",
                                     L"PENTHOUSE",
                                     L"BSMT",
                                     L"UNIT B-",
                                     L"LOT",
                                     L"SLIP",
                                     L"SPC 4",
                                     L"BOX 1",
                                     L"BOX 77",
                                     L"PO BOX 12",
                                     L"P.O. BOX 5",
                                     L"P O BOX 3",
                                     L"P.O.BOX 3",
                                     L"PSC 12",
                                     L"APO",
                                     L"FPO AP 96201",
                                     L"APO, AE 09204-1234",
                                     L"DPO AA 34002",
                                     L"AUSTIN",
                                     L"NEW YORK",
                                     L"SPRINGFIELD",
                                     L"TX",
                                     L"IL",
                                     L"IL 62701",
                                     L"IL 62701-1234",
                                     L"IL, 627011234",
                                     L"ILLINOIS 62701",
                                     L"NEW YORK 10001",
                                     L"WEST VIRGINIA 25301",
                                     L"VIRGINIA 22201",
                                     L"MARSHALLISLANDS 96960",
                                     L"MARSHALL ISLANDS 96960",
                                     L"FL 33101",
                                     L"NE 68101",
                                     L"DC 20500",
                                     L"62701",
                                     L"_",
                                     L"\u00d1",
                                     L"\u00bd",
                                     L"X\u0301",
                                     L"\u2030",
                                     L"\u0430\u0431",
                                     L"\U0001F600",
                                     L"&",
                                     L"(",
                                     L"/",
                                     L"-",
                                     L"--"};  // one row a kind
constexpr const wchar_t* kSeparators[] = {L" ",  L" ",   L" ", L" ",    L" ",   L"\n",
                                          L"\n", L", ",  L",", L"",     L"  ",  L"\t",
                                          L". ", L" , ", L"-", L"\n\n", L".\n", L",\n"};
constexpr const wchar_t* kNumbers[] = {L"12", L"12A", L"1 1/2", L"N1W2", L"12-34", L"5", L"77-B"};
constexpr const wchar_t* kBefore[] = {L"N", L"N.E.", L"WEST", L"S.", L"E."};
constexpr const wchar_t* kSuffixes[] = {L"ST", L"AVE", L"BOULEVARD", L"KEY", L"XING"};
constexpr const wchar_t* kBehind[] = {L"N", L"NW", L"SOUTH", L"S.W."};
constexpr const wchar_t* kUnits[] = {L"APT 4", L"#5",   L"REAR", L"STE B-1",
                                     L"FL 3",  L"UNIT", L":#3",  L"PH"};
constexpr const wchar_t* kCities[] = {L"AUSTIN",     L"NEW YORK", L"ST LOUIS", L"FORT WORTH",
                                      L"ANDR\u00c9", L"A",        L""};
constexpr const wchar_t* kStates[] = {L"TX 78701", L"TEXAS 78701-1234",    L"NY 10001",
                                      L"FL 33101", L"WEST VIRGINIA 25301", L"XX 1"};

}  // namespace

std::wstring LabelGenerator::Address() {
  std::wstring text;
  const auto add = [&](const std::wstring& element) { text += element + Separator(); };
  if (OneIn(3)) {
    add(Word());
  }
  add(Any(kNumbers));
  if (OneIn(3)) {
    add(Any(kBefore));
  }
  for (size_t names = 1 + Below(2); names > 0; --names) {
    add(Word());
  }
  if (OneIn(2)) {
    add(Any(kSuffixes));
  }
  if (OneIn(4)) {
    add(Any(kBehind));
  }
  if (OneIn(3)) {
    add(Word());
  }
  if (OneIn(3)) {
    add(Any(kUnits));
  }
  add(Any(kCities));
  add(Any(kStates));
  if (OneIn(3)) {
    add(Word());
    add(Word());
  }
  return text;
}

std::wstring LabelGenerator::Mixture() {
  std::wstring text;
  for (size_t words = 2 + Below(12); words > 0; --words) {
    text += Word() + Separator();
  }
  return text;
}

std::wstring LabelGenerator::Noise() {
  constexpr std::wstring_view kCharacters = L"015 ,,- \nNEAIL#.:/BOXPTS";
  std::wstring text;
  const auto add = [&](size_t count) {
    for (; count > 0; --count) {
      text += kCharacters[Below(kCharacters.size())];
    }
  };
  add(5 + Below(30));
  text += OneIn(4) ? L"" : L" IL 62701";
  add(Below(6));
  text += OneIn(3) ? L"IL 62701" : L"";
  return text;
}

std::wstring LabelGenerator::Word() {
  return Any(kWords);
}

std::wstring LabelGenerator::Separator() {
  return Any(kSeparators);
}

}  // namespace postwright
