#include "core/review/PlaceLine.h"

#include "core/review/Countries.h"
#include "core/review/Digits.h"
#include "core/review/LineKind.h"
#include "core/review/StateNames.h"

#include <postwright/Utils.h>

#include <cwctype>

namespace postwright {

using namespace LabelLines;

namespace {

constexpr std::wstring_view kPunctuation = L" ,.;:()-";
constexpr std::wstring_view kDashes = L"-\u2010\u2011\u2012\u2013\u2014\u2212";
constexpr std::size_t kLongestEnd = 60;  // of characters after the state's name, at most

std::wstring_view DigitsAtEnd(std::wstring_view text) {
  std::size_t begin = text.size();
  while (begin > 0 && IsDigit(text[begin - 1])) {
    --begin;
  }
  return text.substr(begin);
}

// The digits of a ZIP code whose add-on `text` ends with a dash or a blank after: "78701 - ".
std::wstring_view ZipInFrontOfAddOn(std::wstring_view text) {
  std::wstring_view front = TrimEnd(text, L" ");
  if (!front.empty() && kDashes.find(front.back()) != kDashes.npos) {
    front = TrimEnd(front.substr(0, front.size() - 1), L" ");
  }
  return front.size() == text.size() ? std::wstring_view() : front;
}

// "Zip", "ZIP code:" in front of a ZIP code that has a line of its own.
bool IsZipWord(std::wstring_view text) {
  const std::wstring word = LettersAndDigits(text);
  return word.empty() || word == L"ZIP" || word == L"ZIPCODE";
}

// Takes the state from the end of `text`; false where there is none.
bool TakeState(std::wstring_view& text, Place& place) {
  const std::wstring_view whole = text;
  text = TrimEnd(text, kPunctuation);
  const std::wstring upper = Utils::ToUpper(std::wstring(text));
  const StateAtEnd state = FindStateAtEnd(upper);
  if (state.code.empty()) {
    return false;
  }
  const bool dotted = whole.substr(text.size()).starts_with(L'.');
  const std::wstring typed(whole.substr(state.begin, text.size() - state.begin));
  place.stateCode = state.code;
  place.state = state.isRead ? typed : state.code;
  if (!state.isRead) {
    place.respellings.push_back(
        {AddressRespellingState, typed + (dotted ? L"." : L""), state.code});
  }
  text = TrimEnd(text.substr(0, state.begin), kPunctuation);
  return true;
}

// The piece in front of the state is the city where the comma between them says so, or where it is
// a line of words below a line that can be a street.
bool IsCity(const std::vector<LabelPiece>& pieces, std::size_t at) {
  const LabelPiece& piece = pieces[at];
  return !HasDigit(piece.typed) && !WordsOf(piece.typed).empty() &&
         (!pieces[at + 1].startsLine || (at > 0 && KindOf(piece) == LineKind::kOther));
}

}  // namespace

std::wstring Place::Text() const {
  return (city.empty() ? L"" : city + L", ") + state + L" " + zip;
}

std::wstring Place::TextWithCity() const {
  return city.empty() ? stateCode + L", " + Text() : Text();
}

std::wstring TakeZip(std::wstring_view& text) {
  const std::wstring_view trimmed = TrimEnd(text, kPunctuation);
  std::wstring_view digits = DigitsAtEnd(trimmed);
  std::wstring_view front = trimmed.substr(0, trimmed.size() - digits.size());
  std::wstring zip(digits.substr(0, 5));
  if (digits.size() == 9) {
    zip += L"-" + std::wstring(digits.substr(5));
  } else if (digits.size() == 4) {
    const std::wstring_view code = ZipInFrontOfAddOn(front);
    const std::wstring_view codeDigits = DigitsAtEnd(code);
    front = code.substr(0, code.size() - codeDigits.size());
    if (codeDigits.size() != 5) {
      return L"";
    }
    zip = std::wstring(codeDigits) + L"-" + std::wstring(digits);
  } else if (digits.size() != 5) {
    return L"";
  }
  if (!front.empty() && (front.back() == L'#' || kDashes.find(front.back()) != kDashes.npos)) {
    return L"";  // a telephone number, or a number of something else
  }
  text = front;
  return zip;
}

std::size_t EndOfZip(std::wstring_view text, const LabelPiece& line) {
  std::wstring_view rest = text.substr(line.begin, line.end - line.begin);
  const std::wstring_view end =
      rest.substr(rest.size() > kLongestEnd ? rest.size() - kLongestEnd : 0);
  const std::size_t digit = end.find_last_of(L"0123456789");
  if (digit == end.npos) {
    return line.begin;
  }
  const std::wstring_view behind = end.substr(digit + 1);
  if (!LettersAndDigits(behind).empty() && !IsUnitedStates(Utils::ToUpper(std::wstring(behind)))) {
    return line.begin;
  }
  std::wstring_view code = end.substr(0, digit + 1);
  const std::size_t punctuation = LettersAndDigits(behind).empty() ? behind.size() : 0;
  return TakeZip(code).empty() ? line.begin : line.end - behind.size() + punctuation;
}

std::optional<Place> ReadPlace(const std::vector<LabelPiece>& pieces) {
  Place place;
  std::size_t at = pieces.size() - 1;
  const std::wstring_view typed = pieces[at].typed;
  std::wstring_view rest = typed;
  place.zip = TakeZip(rest);
  if (place.zip.empty()) {
    return std::nullopt;
  }
  const std::wstring zipTyped(TrimStart(TrimEnd(typed.substr(rest.size()), L" ,.;:)"), L" "));
  bool comma = false;
  bool glued = false;
  if (IsZipWord(rest) && at > 0) {
    const bool ownLine = pieces[at].startsLine;
    comma = !ownLine;
    rest = pieces[--at].typed;
    if (ownLine) {
      place.respellings.push_back({AddressRespellingZipLine, zipTyped, place.zip});
    }
  } else {
    glued = !rest.empty() && std::iswalpha(static_cast<std::wint_t>(rest.back())) != 0;
    comma = TrimEnd(rest, L" .").ends_with(L",");
  }
  if (!TakeState(rest, place)) {
    return std::nullopt;
  }
  if (comma) {
    place.respellings.push_back(
        {AddressRespellingComma, place.state + L", " + place.zip, place.state + L" " + place.zip});
  }
  if (glued || zipTyped != place.zip) {
    const std::wstring state = glued ? place.state : L"";
    place.respellings.push_back(
        {AddressRespellingZip, state + zipTyped, (glued ? state + L" " : L"") + place.zip});
  }
  place.first = at;
  if (HasDigit(rest)) {
    place.ahead = rest;
  } else if (!rest.empty()) {
    place.city = rest;
  } else if (at > 0 && IsCity(pieces, at - 1)) {
    place.first = at - 1;
    place.city = TrimEnd(pieces[at - 1].typed, kPunctuation);
  }
  return place;
}

}  // namespace postwright
