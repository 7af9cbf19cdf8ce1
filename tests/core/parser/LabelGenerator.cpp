#include "tests/core/parser/LabelGenerator.h"

#include <string_view>
#include <vector>

namespace postwright {

namespace {

// Separated by bars.
constexpr std::wstring_view kWords =
    L"12|5|123|12A|12-B|12-3|12-34|12 1/2|121/2|12-1/2|1/2|N12W345|N 12 W 345|S5 E7|0|00000|"
    L"1234567|3RD|1A|61N|E|N|S.|N.E.|NE|WEST|SOUTH|NORTHWEST|MAIN|OAK|BROADWAY|HIGHWAY 61|"
    L"42ND ST|CO.|JOHN|SMITH|A|B|ST|ST.|AVE|AVENUE|KEY|FORT|ST APT|APT|APARTMENT 4|APTMENT|"
    L"FL 3|FLOOR|FLOOOR 2|FLO|RM|ROOM 12|#|# 5|#5-B|:APT 3|:#9|:|REAR|PH|PENTHOUSE|BSMT|"
    L"UNIT B-|LOT|SLIP|SPC 4|BOX 1|BOX 77|PO BOX 12|P.O. BOX 5|P O BOX 3|P.O.BOX 3|PSC 12|"
    L"APO|FPO AP 96201|APO, AE 09204-1234|DPO AA 34002|AUSTIN|NEW YORK|SPRINGFIELD|TX|IL|"
    L"IL 62701|IL 62701-1234|IL, 627011234|ILLINOIS 62701|NEW YORK 10001|"
    L"WEST VIRGINIA 25301|VIRGINIA 22201|MARSHALLISLANDS 96960|MARSHALL ISLANDS 96960|"
    L"FL 33101|NE 68101|DC 20500|62701|_|\u00d1|\u00bd|X\u0301|\u2030|\u0430\u0431|"
    L"\U0001F600|&|(|/|-|--";
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

std::vector<std::wstring_view> SplitAtBars(std::wstring_view text) {
  std::vector<std::wstring_view> pieces;
  for (size_t bar; (bar = text.find(L'|')) != std::wstring_view::npos;
       text.remove_prefix(bar + 1)) {
    pieces.push_back(text.substr(0, bar));
  }
  pieces.push_back(text);
  return pieces;
}

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
  static const std::vector<std::wstring_view> words = SplitAtBars(kWords);
  return std::wstring(words[Below(words.size())]);
}

std::wstring LabelGenerator::Separator() {
  return Any(kSeparators);
}

}  // namespace postwright
