#include "core/parser/AddressReader.h"

#include <algorithm>
#include <utility>

namespace postwright {

namespace {

constexpr int kNowhere = TailTable::kNowhere;

}  // namespace

AddressReader::AddressReader(PostalWords words) : words_(std::move(words)) {}

std::optional<AddressCaptures> AddressReader::Read(std::wstring_view text) {
  if (text.size() > kLongestText) {
    return std::nullopt;
  }
  text_.Set(text);
  captures_ = {};
  if (ReadMilitary() || (table_.Build(text) && (ReadPoBox() || ReadStreetAddress()))) {
    return captures_;
  }
  return std::nullopt;
}

// The delivery line is everything from the first word on, and at least one character, so the search
// never goes on from its first attempt. Where nothing but the base itself is left for the line, the
// engine gives it the character before.
bool AddressReader::ReadMilitary() {
  int first = 0;
  while (text_.Is(first, CharacterClasses::kNonWord) && !text_.Holds(first, L'#')) {
    ++first;
  }
  int only = kNowhere;
  const std::wstring_view text = text_.Whole();
  for (size_t found = 0; (found = text.find(L"PO", found)) != text.npos; found += 2) {
    const int city = static_cast<int>(found) - 1;
    if (city < first || !IsMilitaryBase(city)) {
      continue;
    }
    if (city > first) {
      ReadMilitaryBase(first, city);
      return true;
    }
    only = city;
  }
  if (only < 1) {
    return false;
  }
  ReadMilitaryBase(only - 1, only);
  return true;
}

bool AddressReader::IsMilitaryBase(int at) const {
  const auto holds = [this](int place, std::wstring_view any) {
    return std::ranges::any_of(any, [&](wchar_t c) { return text_.Holds(place, c); });
  };
  if (!holds(at, L"AFD") || !text_.Is(at + 3, CharacterClasses::kNonWord)) {
    return false;
  }
  const int state = text_.SkipNonWord(at + 3);
  return text_.Holds(state, L'A') && holds(state + 1, L"AEP") &&
         text_.Is(state + 2, CharacterClasses::kNonWord) && IsZip(text_.SkipNonWord(state + 2));
}

void AddressReader::ReadMilitaryBase(int line, int city) {
  const int state = text_.SkipNonWord(city + 3);
  captures_.match.begin = 0;
  Capture(Group::kStreetLine, line, city);
  Capture(Group::kCity, city, city + 3);
  Capture(Group::kState, state, state + 2);
  street_.ReadZip(text_.SkipNonWord(state + 2));
}

bool AddressReader::ReadPoBox() {
  constexpr std::wstring_view kBox = L"BOX ";
  const std::wstring_view text = text_.Whole();
  for (size_t box = 0; (box = text.find(kBox, box)) != text.npos; ++box) {
    const int number = static_cast<int>(box + kBox.size());
    const int end = text_.SkipDigits(number);
    if (end == number || end >= table_.End() || table_[end].cityBehind == kNowhere) {
      continue;
    }
    const int line = PostOfficeBefore(static_cast<int>(box));
    captures_.match.begin = line;
    while (text_.Is(captures_.match.begin - 1, CharacterClasses::kNonWord)) {
      --captures_.match.begin;
    }
    Capture(Group::kStreetLine, line, end);
    street_.ReadCityStateZip(table_[end].cityBehind);
    return true;
  }
  return false;
}

// Where "PO ", "P.O. ", "P O " and similar words before a box begin; the box itself, where none do.
int AddressReader::PostOfficeBefore(int box) const {
  int at = box - 1;
  if (!text_.Holds(at, L' ')) {
    return box;
  }
  for (const wchar_t letter : {L'O', L'P'}) {
    --at;
    if (text_.Holds(at, L'.') || text_.Holds(at, L' ')) {
      --at;
    }
    if (!text_.Holds(at, letter)) {
      return box;
    }
  }
  return at;
}

bool AddressReader::ReadStreetAddress() {
  for (int start = 0; start < table_.End();) {
    int number = start;
    while (number < table_.End() && table_[number].Is(CharacterClasses::kNonWord) &&
           !text_.Holds(number, L'#')) {
      ++number;
    }
    if (ReadNumber(number)) {
      captures_.match.begin = start;
      return true;
    }
    start = NextSearchStart(number);
  }
  return false;
}

// The engine does not try every place. Each time it tries one of the greedy pieces at
// the front of an alternative it notes how far the piece read, and its next attempt begins at the
// last place noted. This follows those notes: what was tried last is the shortest house number with
// the street directly after it.
int AddressReader::NextSearchStart(int failed) const {
  if (text_.Is(failed, CharacterClasses::kDigit)) {
    return NextSearchStartBehindStreet(failed + 1);
  }
  const int gridNumber = SkipGridNumber(failed);
  return gridNumber != kNowhere ? NextSearchStartBehindStreet(gridNumber + 1) : failed + 1;
}

// The street's last form runs up to the next comma, and the optional colon of a unit is tried
// after that. Where there is no comma before the last state, nothing is left to search.
int AddressReader::NextSearchStartBehindStreet(int street) const {
  if (text_.Is(street, CharacterClasses::kComma)) {
    return street + 1;
  }
  const size_t comma = text_.Whole().find(L',', static_cast<size_t>(street));
  return comma < static_cast<size_t>(table_.End()) ? static_cast<int>(comma) + 2 : table_.End();
}

bool AddressReader::ReadNumber(int at) {
  if (!text_.Is(at, CharacterClasses::kDigit)) {
    return ReadGridNumber(at);
  }
  const int digitsEnd = text_.SkipDigits(at);
  return ReadNumberWithUnit(at, digitsEnd) || ReadFraction(at, digitsEnd) ||
         ReadPlainNumber(at, digitsEnd);
}

// NUMBER1 and SECONDARYNUMBER1: 12-3, 12-B, 12B, with the word at its end.
bool AddressReader::ReadNumberWithUnit(int at, int digitsEnd) {
  const bool hyphen = text_.Holds(digitsEnd, L'-');
  const int unit = digitsEnd + (hyphen ? 1 : 0);
  const uint8_t allowed = CharacterClasses::kLetter | (hyphen ? CharacterClasses::kDigit : 0);
  if (!text_.Is(unit, allowed) || text_.Is(unit + 1, CharacterClasses::kWord) ||
      !ReadStreetBehindNumber(Group::kNumber1, at, unit + 1, unit + 1)) {
    return false;
  }
  Capture(Group::kNumber1, at, digitsEnd);
  Capture(Group::kSecondaryNumber1, digitsEnd, unit + 1);
  return true;
}

// NUMBER2: 12 1/2, 12-1/2, 121/2.
bool AddressReader::ReadFraction(int at, int digitsEnd) {
  int slash = digitsEnd;
  if (text_.Holds(digitsEnd, L'-') || text_.Holds(digitsEnd, L' ')) {
    slash = text_.SkipDigits(digitsEnd + 1);
    if (slash == digitsEnd + 1) {
      return false;
    }
  } else if (digitsEnd - at < 2) {
    return false;
  }
  return text_.Is(slash, CharacterClasses::kNonWord) && text_.Holds(slash, L'/') &&
         ReadStreetBehindNumber(Group::kNumber2, at, slash + 2, text_.SkipDigits(slash + 1));
}

// NUMBER3: 12, 12-34, 12-.
bool AddressReader::ReadPlainNumber(int at, int digitsEnd) {
  const int end = text_.Holds(digitsEnd, L'-') ? text_.SkipDigits(digitsEnd + 1) : digitsEnd;
  return ReadStreetBehindNumber(Group::kNumber3, at, at + 1, end);
}

// NUMBER4: N12W345, N 12 W 345.
bool AddressReader::ReadGridNumber(int at) {
  const int lastDigits = SkipGridNumber(at);
  return lastDigits != kNowhere &&
         ReadStreetBehindNumber(Group::kNumber4, at, lastDigits + 1, text_.SkipDigits(lastDigits));
}

// Reads the rest after the longest number that ends in [shortest, longest] and leaves a street.
bool AddressReader::ReadStreetBehindNumber(Group group, int begin, int shortest, int longest) {
  for (int end = longest; end >= shortest; --end) {
    const int street = street_.BeginBehindNumber(end);
    if (street != kNowhere) {
      Capture(group, begin, end);
      street_.Read(street);
      return true;
    }
  }
  return false;
}

bool AddressReader::IsZip(int at) const {
  return text_.SkipDigits(at) - at >= 5;
}

// Returns where the last digits of a grid number that begins at `at` begin.
int AddressReader::SkipGridNumber(int at) const {
  const auto skipBlank = [this](int from) { return text_.Holds(from, L' ') ? from + 1 : from; };
  if (!text_.Is(at, CharacterClasses::kCompass)) {
    return kNowhere;
  }
  const int first = skipBlank(at + 1);
  const int firstEnd = text_.SkipDigits(first);
  const int direction = skipBlank(firstEnd);
  if (firstEnd == first || !text_.Is(direction, CharacterClasses::kCompass)) {
    return kNowhere;
  }
  const int last = skipBlank(direction + 1);
  return text_.Is(last, CharacterClasses::kDigit) ? last : kNowhere;
}

}  // namespace postwright
