#include "core/parser/TailTable.h"

namespace postwright {

bool TailTable::Build(std::wstring_view text) {
  text_ = text;
  FindStates();
  if (states_.empty()) {
    return false;
  }
  const int end = states_.back().begin;
  places_.assign(static_cast<size_t>(end) + 1, Place{});
  for (const StateSpan& state : states_) {
    At(state.begin).stateEnd = state.end;
  }
  for (int at = end; at >= 0; --at) {
    At(at).flags = classes_.Of(text_[static_cast<size_t>(at)]);
    At(at).runEnd = At(at).blankEnd = At(at).wordEnd = at;
    if (at < end) {
      BuildRuns(at);
      BuildCity(at);
      BuildUnit(at);
      BuildStreet(at);
    }
  }
  return true;
}

// A ZIP code can only follow W that directly follows a state: the patterns want a word
// boundary at the state's end, and a digit beside a letter is none.
void TailTable::FindStates() {
  states_.clear();
  constexpr size_t kZipDigits = 5;
  size_t digits = 0;
  for (size_t at = 0; at < text_.size(); ++at) {
    digits = text_[at] >= L'0' && text_[at] <= L'9' ? digits + 1 : 0;
    if (digits == kZipDigits) {
      FindStatesBefore(static_cast<int>(at + 1 - kZipDigits));
    }
  }
}

void TailTable::FindStatesBefore(int zip) {
  const auto isNonWord = [this](int at) {
    return at >= 0 && classes_.Of(text_[static_cast<size_t>(at)]) & CharacterClasses::kNonWord;
  };
  int end = zip;
  while (isNonWord(end - 1)) {
    --end;
  }
  if (end == zip || end == 0) {
    return;
  }
  const std::wstring_view before = text_.substr(0, static_cast<size_t>(end));
  const size_t known = states_.size();
  for (const std::wstring& state : words_.StatesEndingIn(before.back())) {
    const int begin = end - static_cast<int>(state.size());
    if (isNonWord(begin - 1) && before.ends_with(state)) {
      // Of two states that end here (VIRGINIA, WEST VIRGINIA) the table wants the first one first.
      const bool first = states_.size() > known && begin < states_.back().begin;
      states_.insert(first ? states_.end() - 1 : states_.end(), {begin, end});
    }
  }
}

void TailTable::BuildRuns(int at) {
  Place& place = At(at);
  const Place& next = At(at + 1);
  if (place.Is(CharacterClasses::kWord)) {
    place.wordEnd = next.Is(CharacterClasses::kWord) ? next.wordEnd : at + 1;
    return;
  }
  place.runEnd = next.runEnd;
  if (!place.Is(CharacterClasses::kComma)) {
    place.blankEnd = next.blankEnd;
  }
}

void TailTable::BuildCity(int at) {
  Place& place = At(at);
  const Place& next = At(at + 1);
  if (!place.Is(CharacterClasses::kDigit | CharacterClasses::kComma)) {
    place.cityEnd = HasStateBehind(at + 1) ? at + 1 : next.cityEnd;
  }
  if (place.Is(CharacterClasses::kNonWord)) {
    place.cityBehind = next.cityBehind;
    if (place.cityBehind == kNowhere && next.cityEnd != kNowhere) {
      place.cityBehind = at + 1;
    }
  }
}

bool TailTable::HasStateBehind(int at) const {
  const Place& place = (*this)[at];
  return place.Is(CharacterClasses::kNonWord) && (*this)[place.runEnd].stateEnd != kNowhere;
}

// After a unit there may be a comma, and there is W with the city after it. The comma is itself a
// character of W, so whether it is taken first makes no difference.
void TailTable::BuildUnit(int at) {
  Place& place = At(at);
  const Place& next = At(at + 1);
  if (place.Is(CharacterClasses::kWord) || text_[static_cast<size_t>(at)] == L'-') {
    place.unitNumberEnd = next.unitNumberEnd;
    if (place.unitNumberEnd == kNowhere && next.cityBehind != kNowhere) {
      place.unitNumberEnd = at + 1;
    }
  }
  if (place.Is(CharacterClasses::kNonWord)) {
    place.unitNumberBehind = next.unitNumberBehind;
  }
  if (place.unitNumberBehind == kNowhere && place.unitNumberEnd != kNowhere) {
    place.unitNumberBehind = at;
  }
}

void TailTable::BuildStreet(int at) {
  Place& place = At(at);
  const Place& next = At(at + 1);
  if (place.Is(CharacterClasses::kNonWord)) {
    // A unit is looked for after W alone.
    At(at + 1).startsSecondary = StartsSecondary(at + 1);
    place.tailBehind = next.tailBehind;
    if (place.tailBehind == kNowhere && (next.startsSecondary || next.cityEnd != kNowhere)) {
      place.tailBehind = at + 1;
    }
    place.startsSuffix = IsBlank(at) && (IsBlank(at + 1) ? next.startsSuffix : StartsSuffix(at));
    place.endsStreet = place.tailBehind != kNowhere || place.startsSuffix ||
                       PostdirectionalEndBehindBlanks(at) != kNowhere;
    place.streetBehind = next.streetBehind;
    if (place.streetBehind == kNowhere && next.StartsStreet()) {
      place.streetBehind = at + 1;
    }
  }
  if (place.Is(CharacterClasses::kComma)) {
    return;  // no street name holds one
  }
  place.digitStreetEnd = next.digitStreetEnd;
  if (place.digitStreetEnd == kNowhere && place.Is(CharacterClasses::kDigit) &&
      EndsDigitStreet(at + 1)) {
    place.digitStreetEnd = at + 1;
  }
  place.suffixedStreetEnd = next.suffixedStreetEnd;
  if (place.suffixedStreetEnd == kNowhere && next.startsSuffix) {
    place.suffixedStreetEnd = at + 1;
  }
  place.plainStreetEnd = next.endsStreet ? at + 1 : next.plainStreetEnd;
}

bool TailTable::StartsSecondary(int at) const {
  if (at == End()) {
    return false;
  }
  const int designator = at + (text_[static_cast<size_t>(at)] == L':' ? 1 : 0);
  return NumberedUnitEnd(designator) != kNowhere || PlainUnitEnd(at) != kNowhere;
}

int TailTable::NumberedUnitEnd(int at) const {
  if (at >= End()) {
    return kNowhere;
  }
  if (text_[static_cast<size_t>(at)] == L'#') {
    return (*this)[at + 1].unitNumberBehind != kNowhere ? at + 1 : kNowhere;
  }
  words_.FindNumberedUnits(text_, at, unitEnds_);
  for (const int end : unitEnds_) {
    if ((*this)[end].unitNumberBehind != kNowhere) {
      return end;
    }
  }
  return kNowhere;
}

int TailTable::PlainUnitEnd(int at) const {
  words_.FindPlainUnits(text_, at, unitEnds_);
  for (const int end : unitEnds_) {
    if ((*this)[end].cityBehind != kNowhere) {
      return end;
    }
  }
  return kNowhere;
}

bool TailTable::StartsSuffix(int at) const {
  const int word = (*this)[at].blankEnd;
  const int end = (*this)[word].wordEnd;
  return ((*this)[end].tailBehind != kNowhere || PostdirectionalEndBehindBlanks(end) != kNowhere) &&
         words_.IsSuffix(Word(word));
}

bool TailTable::EndsDigitStreet(int at) const {
  return PostdirectionalEnd((*this)[at].blankEnd) != kNowhere;
}

int TailTable::PostdirectionalEnd(int at) const {
  const Place& place = (*this)[at];
  const bool followed = (*this)[place.wordEnd].tailBehind != kNowhere;
  return followed && place.Is(CharacterClasses::kCompass) && words_.IsDirection(Word(at))
             ? place.wordEnd
             : kNowhere;
}

int TailTable::PostdirectionalEndBehindBlanks(int at) const {
  return IsBlank(at) ? PostdirectionalEnd((*this)[at].blankEnd) : kNowhere;
}

std::wstring_view TailTable::Word(int at) const {
  return text_.substr(static_cast<size_t>(at), static_cast<size_t>((*this)[at].wordEnd - at));
}

}  // namespace postwright
