#include "core/parser/StreetReader.h"

namespace postwright {

namespace {

constexpr int kNowhere = TailTable::kNowhere;

}  // namespace

// Where the street after the number that ends at `at` begins: after as much of the W there as
// leaves a street to be read.
int StreetReader::BeginBehindNumber(int at) const {
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

int StreetReader::PredirectionalEnd(int at) const {
  if (!table_[at].Is(CharacterClasses::kCompass)) {
    return kNowhere;
  }
  const std::wstring_view rest = text_.From(at);
  for (const std::wstring& direction : words_.Directions()) {
    const int end = at + static_cast<int>(direction.size());
    if (end < table_.End() && table_[end].streetBehind != kNowhere && rest.starts_with(direction)) {
      return end;
    }
  }
  return kNowhere;
}

void StreetReader::Read(int at) {
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
bool StreetReader::ReadDirectionalStreet(int at) {
  if (!table_[at].Is(CharacterClasses::kCompass)) {
    return false;
  }
  const std::wstring_view rest = text_.From(at);
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
void StreetReader::ReadNamedStreet(int at) {
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

void StreetReader::ReadSuffix(int at, Group suffix, Group postdirectional) {
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
void StreetReader::ReadPostdirectional(int at, Group group) {
  const int word = table_[at].blankEnd;
  const int end = table_.PostdirectionalEnd(word);
  if (end == kNowhere) {
    ReadTail(at);
    return;
  }
  Capture(group, word, end);
  ReadTail(end);
}

void StreetReader::ReadTail(int at) {
  const int tail = table_[at].tailBehind;
  ReadCityStateZip(table_[tail].startsSecondary ? table_[ReadSecondary(tail)].cityBehind : tail);
}

// Returns where the unit ends.
int StreetReader::ReadSecondary(int at) {
  const int designator = at + (text_.Holds(at, L':') ? 1 : 0);
  const int end = table_.NumberedUnitEnd(designator);
  if (end == kNowhere) {
    const int plainEnd = table_.PlainUnitEnd(at);
    Capture(Group::kSecondaryUnit2, at, plainEnd);
    return plainEnd;
  }
  const bool hash = text_.Holds(designator, L'#');
  Capture(hash ? Group::kSecondaryUnit3 : Group::kSecondaryUnit1, designator, end);
  const int number = table_[end].unitNumberBehind;
  Capture(Group::kSecondaryNumber2, number, table_[number].unitNumberEnd);
  return table_[number].unitNumberEnd;
}

void StreetReader::ReadCityStateZip(int at) {
  const int cityEnd = table_[at].cityEnd;
  const int state = table_[cityEnd].runEnd;
  const int stateEnd = table_[state].stateEnd;
  Capture(Group::kCity, at, cityEnd);
  Capture(Group::kState, state, stateEnd);
  ReadZip(text_.SkipNonWord(stateEnd));
}

// Reads the ZIP code and the W after it, which belongs to the match.
void StreetReader::ReadZip(int at) {
  int end = at + 5;
  const int addOn =
      end + (text_.Is(end, CharacterClasses::kNonWord) && text_.Holds(end, L'-') ? 1 : 0);
  if (text_.SkipDigits(addOn) - addOn >= 4) {
    end = addOn + 4;
  }
  Capture(Group::kZip, at, end);
  captures_.match.end = text_.SkipNonWord(end);
}

}  // namespace postwright
