#include "core/parser/AddressReader.h"

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
  text_ = text;
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
  while (Is(first, CharacterClasses::kNonWord) && text_[static_cast<size_t>(first)] != L'#') {
    ++first;
  }
  int only = kNowhere;
  for (size_t found = 0; (found = text_.find(L"PO", found)) != text_.npos; found += 2) {
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
  constexpr std::wstring_view kOffices = L"AFD";
  constexpr std::wstring_view kStates = L"AEP";
  if (kOffices.find(text_[static_cast<size_t>(at)]) == kOffices.npos ||
      !Is(at + 3, CharacterClasses::kNonWord)) {
    return false;
  }
  const auto state = static_cast<size_t>(SkipNonWord(at + 3));
  const int stateEnd = static_cast<int>(state) + 2;
  return state + 2 < text_.size() && text_[state] == L'A' &&
         kStates.find(text_[state + 1]) != kStates.npos &&
         Is(stateEnd, CharacterClasses::kNonWord) && IsZip(SkipNonWord(stateEnd));
}

void AddressReader::ReadMilitaryBase(int line, int city) {
  const int state = SkipNonWord(city + 3);
  captures_.match.begin = 0;
  Capture(Group::kStreetLine, line, city);
  Capture(Group::kCity, city, city + 3);
  Capture(Group::kState, state, state + 2);
  ReadZip(SkipNonWord(state + 2));
}

bool AddressReader::ReadPoBox() {
  constexpr std::wstring_view kBox = L"BOX ";
  for (size_t box = 0; (box = text_.find(kBox, box)) != text_.npos; ++box) {
    const int number = static_cast<int>(box + kBox.size());
    const int end = SkipDigits(number);
    if (end == number || end >= table_.End() || table_[end].cityBehind == kNowhere) {
      continue;
    }
    const int line = PostOfficeBefore(static_cast<int>(box));
    captures_.match.begin = line;
    while (Is(captures_.match.begin - 1, CharacterClasses::kNonWord)) {
      --captures_.match.begin;
    }
    Capture(Group::kStreetLine, line, end);
    ReadCityStateZip(table_[end].cityBehind);
    return true;
  }
  return false;
}

// Where "PO ", "P.O. ", "P O " and their like before a box begin; the box itself, where none do.
int AddressReader::PostOfficeBefore(int box) const {
  const auto is = [this](int at, std::wstring_view any) {
    return at >= 0 && any.find(text_[static_cast<size_t>(at)]) != any.npos;
  };
  int at = box - 1;
  if (!is(at, L" ")) {
    return box;
  }
  for (const wchar_t* letter : {L"O", L"P"}) {
    --at;
    if (is(at, L". ")) {
      --at;
    }
    if (!is(at, letter)) {
      return box;
    }
  }
  return at;
}

bool AddressReader::ReadStreetAddress() {
  for (int start = 0; start < table_.End();) {
    int number = start;
    while (number < table_.End() && table_[number].Is(CharacterClasses::kNonWord) &&
           text_[static_cast<size_t>(number)] != L'#') {
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

// The engine does not try every place. Each time it tries one of the greedy pieces that stand at
// the front of an alternative it notes how far the piece read, and its next attempt begins at the
// last place noted. This follows those notes: what was tried last is the shortest house number with
// the street directly behind it.
int AddressReader::NextSearchStart(int failed) const {
  if (Is(failed, CharacterClasses::kDigit)) {
    return NextSearchStartBehindStreet(failed + 1);
  }
  const int gridNumber = SkipGridNumber(failed);
  return gridNumber != kNowhere ? NextSearchStartBehindStreet(gridNumber + 1) : failed + 1;
}

// The street's last form runs up to the next comma, and the optional colon of a unit is tried
// behind that. Where there is no comma before the last state, nothing is left to search.
int AddressReader::NextSearchStartBehindStreet(int street) const {
  if (Is(street, CharacterClasses::kComma)) {
    return street + 1;
  }
  const size_t comma = text_.find(L',', static_cast<size_t>(street));
  return comma < static_cast<size_t>(table_.End()) ? static_cast<int>(comma) + 2 : table_.End();
}

bool AddressReader::ReadNumber(int at) {
  if (!Is(at, CharacterClasses::kDigit)) {
    return ReadGridNumber(at);
  }
  const int digitsEnd = SkipDigits(at);
  return ReadNumberWithUnit(at, digitsEnd) || ReadFraction(at, digitsEnd) ||
         ReadPlainNumber(at, digitsEnd);
}

// NUMBER1 and SECONDARYNUMBER1: 12-3, 12-B, 12B, with the word at its end.
bool AddressReader::ReadNumberWithUnit(int at, int digitsEnd) {
  const bool hyphen = text_[static_cast<size_t>(digitsEnd)] == L'-';
  const int unit = digitsEnd + (hyphen ? 1 : 0);
  const uint8_t allowed = CharacterClasses::kLetter | (hyphen ? CharacterClasses::kDigit : 0);
  if (!Is(unit, allowed) || Is(unit + 1, CharacterClasses::kWord) ||
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
  const wchar_t behind = text_[static_cast<size_t>(digitsEnd)];
  if (behind == L'-' || behind == L' ') {
    slash = SkipDigits(digitsEnd + 1);
    if (slash == digitsEnd + 1) {
      return false;
    }
  } else if (digitsEnd - at < 2) {
    return false;
  }
  return Is(slash, CharacterClasses::kNonWord) && text_[static_cast<size_t>(slash)] == L'/' &&
         ReadStreetBehindNumber(Group::kNumber2, at, slash + 2, SkipDigits(slash + 1));
}

// NUMBER3: 12, 12-34, 12-.
bool AddressReader::ReadPlainNumber(int at, int digitsEnd) {
  const bool hyphen = text_[static_cast<size_t>(digitsEnd)] == L'-';
  const int end = hyphen ? SkipDigits(digitsEnd + 1) : digitsEnd;
  return ReadStreetBehindNumber(Group::kNumber3, at, at + 1, end);
}

// NUMBER4: N12W345, N 12 W 345.
bool AddressReader::ReadGridNumber(int at) {
  const int lastDigits = SkipGridNumber(at);
  return lastDigits != kNowhere &&
         ReadStreetBehindNumber(Group::kNumber4, at, lastDigits + 1, SkipDigits(lastDigits));
}

// Reads the rest behind the longest number that ends in [shortest, longest] and leaves a street.
bool AddressReader::ReadStreetBehindNumber(Group group, int begin, int shortest, int longest) {
  for (int end = longest; end >= shortest; --end) {
    const int street = StreetBehindNumber(end);
    if (street != kNowhere) {
      Capture(group, begin, end);
      ReadStreet(street);
      return true;
    }
  }
  return false;
}

// Where the street behind the number that ends at `at` begins: behind as much of the W there as
// leaves a street to be read.
int AddressReader::StreetBehindNumber(int at) const {
  if (at >= table_.End()) {
    return kNowhere;
  }
  const int behind = table_[at].runEnd;
  if (table_[behind].StartsStreet() || PredirectionalEnd(behind) != kNowhere) {
    return behind;
  }
  if (table_[at].streetBehind != kNowhere) {
    return table_[at].streetBehind;
  }
  return table_[at].StartsStreet() ? at : kNowhere;
}

int AddressReader::PredirectionalEnd(int at) const {
  if (!table_[at].Is(CharacterClasses::kCompass)) {
    return kNowhere;
  }
  const std::wstring_view rest = text_.substr(static_cast<size_t>(at));
  for (const std::wstring& direction : words_.Directions()) {
    const int end = at + static_cast<int>(direction.size());
    if (end < table_.End() && table_[end].streetBehind != kNowhere && rest.starts_with(direction)) {
      return end;
    }
  }
  return kNowhere;
}

void AddressReader::ReadStreet(int at) {
  if (ReadDirectionalStreet(at)) {
    return;
  }
  const int directionEnd = PredirectionalEnd(at);
  if (directionEnd == kNowhere) {
    ReadNamedStreet(at);
    return;
  }
  Capture(Group::kPredirectional1, at, directionEnd);
  ReadNamedStreet(table_[directionEnd].streetBehind);
}

// STREET1: NORTH AVE.
bool AddressReader::ReadDirectionalStreet(int at) {
  if (!table_[at].Is(CharacterClasses::kCompass)) {
    return false;
  }
  const std::wstring_view rest = text_.substr(static_cast<size_t>(at));
  for (const std::wstring& direction : words_.Directions()) {
    const int end = at + static_cast<int>(direction.size());
    if (!rest.starts_with(direction) || end >= table_.End() ||
        !table_[end].Is(CharacterClasses::kNonWord)) {
      continue;
    }
    const int suffix = table_[end].runEnd;
    const int suffixEnd = table_[suffix].wordEnd;
    if (table_[suffixEnd].tailBehind != kNowhere && words_.IsSuffix(table_.Word(suffix))) {
      Capture(Group::kStreet1, at, end);
      Capture(Group::kSuffix1, suffix, suffixEnd);
      ReadTail(suffixEnd);
      return true;
    }
  }
  return false;
}

// STREET2, STREET3, STREET4: HIGHWAY 61 N, MAIN ST N, BROADWAY N.
void AddressReader::ReadNamedStreet(int at) {
  const TailTable::Place& place = table_[at];
  if (place.digitStreetEnd != kNowhere) {
    Capture(Group::kStreet2, at, place.digitStreetEnd);
    ReadPostdirectional(place.digitStreetEnd, Group::kPostdirectional1);
  } else if (place.suffixedStreetEnd != kNowhere) {
    Capture(Group::kStreet3, at, place.suffixedStreetEnd);
    ReadSuffix(place.suffixedStreetEnd, Group::kSuffix2, Group::kPostdirectional2);
  } else {
    Capture(Group::kStreet4, at, place.plainStreetEnd);
    if (table_[place.plainStreetEnd].startsSuffix) {
      ReadSuffix(place.plainStreetEnd, Group::kSuffix3, Group::kPostdirectional3);
    } else {
      ReadPostdirectional(place.plainStreetEnd, Group::kPostdirectional3);
    }
  }
}

void AddressReader::ReadSuffix(int at, Group suffix, Group postdirectional) {
  const int word = table_[at].blankEnd;
  const int end = table_[word].wordEnd;
  Capture(suffix, word, end);
  if (table_.PostdirectionalEndBehindBlanks(end) != kNowhere) {
    ReadPostdirectional(end, postdirectional);
  } else {
    ReadTail(end);
  }
}

// Reads a directional, if there is one, and the rest.
void AddressReader::ReadPostdirectional(int at, Group group) {
  const int word = table_[at].blankEnd;
  const int end = table_.PostdirectionalEnd(word);
  if (end == kNowhere) {
    ReadTail(at);
    return;
  }
  Capture(group, word, end);
  ReadTail(end);
}

void AddressReader::ReadTail(int at) {
  const int tail = table_[at].tailBehind;
  ReadCityStateZip(table_[tail].startsSecondary ? table_[ReadSecondary(tail)].cityBehind : tail);
}

// Returns where the unit ends.
int AddressReader::ReadSecondary(int at) {
  const int designator = at + (text_[static_cast<size_t>(at)] == L':' ? 1 : 0);
  const int end = table_.NumberedUnitEnd(designator);
  if (end == kNowhere) {
    const int plainEnd = table_.PlainUnitEnd(at);
    Capture(Group::kSecondaryUnit2, at, plainEnd);
    return plainEnd;
  }
  const bool hash = text_[static_cast<size_t>(designator)] == L'#';
  Capture(hash ? Group::kSecondaryUnit3 : Group::kSecondaryUnit1, designator, end);
  const int number = table_[end].unitNumberBehind;
  Capture(Group::kSecondaryNumber2, number, table_[number].unitNumberEnd);
  return table_[number].unitNumberEnd;
}

void AddressReader::ReadCityStateZip(int at) {
  const int cityEnd = table_[at].cityEnd;
  const int state = table_[cityEnd].runEnd;
  const int stateEnd = table_[state].stateEnd;
  Capture(Group::kCity, at, cityEnd);
  Capture(Group::kState, state, stateEnd);
  ReadZip(SkipNonWord(stateEnd));
}

// Reads the ZIP code and the W behind it, which belongs to the match.
void AddressReader::ReadZip(int at) {
  int end = at + 5;
  const int addOn =
      end +
      (Is(end, CharacterClasses::kNonWord) && text_[static_cast<size_t>(end)] == L'-' ? 1 : 0);
  if (SkipDigits(addOn) - addOn >= 4) {
    end = addOn + 4;
  }
  Capture(Group::kZip, at, end);
  captures_.match.end = SkipNonWord(end);
}

bool AddressReader::Is(int at, uint8_t flag) const {
  return at >= 0 && static_cast<size_t>(at) < text_.size() &&
         (classes_.Of(text_[static_cast<size_t>(at)]) & flag) != 0;
}

bool AddressReader::IsZip(int at) const {
  return SkipDigits(at) - at >= 5;
}

int AddressReader::SkipNonWord(int at) const {
  while (Is(at, CharacterClasses::kNonWord)) {
    ++at;
  }
  return at;
}

int AddressReader::SkipDigits(int at) const {
  while (Is(at, CharacterClasses::kDigit)) {
    ++at;
  }
  return at;
}

// Returns where the last digits of a grid number that begins at `at` begin.
int AddressReader::SkipGridNumber(int at) const {
  const auto skipBlank = [this](int from) {
    return static_cast<size_t>(from) < text_.size() && text_[static_cast<size_t>(from)] == L' '
               ? from + 1
               : from;
  };
  if (!Is(at, CharacterClasses::kCompass)) {
    return kNowhere;
  }
  const int first = skipBlank(at + 1);
  const int firstEnd = SkipDigits(first);
  const int direction = skipBlank(firstEnd);
  if (firstEnd == first || !Is(direction, CharacterClasses::kCompass)) {
    return kNowhere;
  }
  const int last = skipBlank(direction + 1);
  return Is(last, CharacterClasses::kDigit) ? last : kNowhere;
}

}  // namespace postwright
