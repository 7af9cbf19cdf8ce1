#include "core/review/RuleFinder.h"

#include <algorithm>

#include "core/review/Digits.h"
#include "core/review/WordForms.h"

namespace postwright {

namespace {

// The letters of the reply's Footnotes that explain a change.
constexpr std::string_view kZipNotes = "AE";
constexpr std::string_view kPlaceNotes = "AB";
constexpr std::string_view kElementNotes = "KLM";
constexpr std::string_view kNameNotes = "M";
constexpr std::string_view kUnitNotes = "L";

}  // namespace

Role RuleFinder::RoleOf(const AlignedPiece& change) const {
  return change.HasCorrected() ? corrected_.roles[change.correctedBegin]
                               : typed_.roles[change.typedBegin];
}

CorrectionRule RuleFinder::Find(const AlignedPiece& change) const {
  if (change.match == Match::Unread) {
    return CorrectionRule::TooLong;
  }
  if (change.match == Match::MayForm) {
    return Says(kElementNotes) ? CorrectionRule::Highway : CorrectionRule::StreetChanged;
  }
  const Role role = RoleOf(change);
  if (change.match == Match::Spelling) {
    return role == Role::City ? CorrectionRule::SpellingOfCity : CorrectionRule::SpellingOfStreet;
  }
  switch (role) {
    case Role::HouseNumber:
      return FindHouseNumber(change);
    case Role::Predirectional:
    case Role::Postdirectional:
      return FindElement(change, CorrectionRule::DirectionalAdded,
                         CorrectionRule::DirectionalChanged, CorrectionRule::DirectionalDropped,
                         CorrectionRule::DirectionalUnexplained);
    case Role::Suffix:
      return FindElement(change, CorrectionRule::SuffixAdded, CorrectionRule::SuffixChanged,
                         CorrectionRule::SuffixDropped, CorrectionRule::SuffixUnexplained);
    case Role::Street:
      return FindStreet(change);
    case Role::Unit:
      return FindUnit(change);
    case Role::City:
      return FindCity(change);
    case Role::State:
      return FindState(change);
    case Role::Zip:
      return FindZip(change);
    case Role::Zip4:
      return FindZip4(change);
    case Role::Urbanization:
      return FindUrbanization(change);
    default:
      return FindPlain(change);
  }
}

std::wstring RuleFinder::Letters(const ReadLabel& label, std::size_t begin, std::size_t end) {
  std::wstring letters;
  for (std::size_t i = begin; i < end; ++i) {
    letters += label.words[i].text;
  }
  return letters;
}

bool RuleFinder::WasTyped(Role role) const {
  return std::find(typed_.roles.begin(), typed_.roles.end(), role) != typed_.roles.end();
}

CorrectionRule RuleFinder::FindElement(const AlignedPiece& change, CorrectionRule added,
                                       CorrectionRule changed, CorrectionRule dropped,
                                       CorrectionRule unexplained) const {
  if (change.HasTyped() && !WordForms::Get().IsStreetWord(Typed(change).text)) {
    return change.HasCorrected() ? CorrectionRule::StreetChanged : CorrectionRule::WordLost;
  }
  if (!Says(kElementNotes)) {
    return unexplained;
  }
  return !change.HasTyped() ? added : change.HasCorrected() ? changed : dropped;
}

// The signs of a house number are part of it, but for the hyphen of A-17 in Puerto Rico.
CorrectionRule RuleFinder::FindHouseNumber(const AlignedPiece& change) const {
  if (!change.HasTyped() || !change.HasCorrected()) {
    return FindPlain(change);
  }
  const std::wstring& typed = Typed(change).text;
  if (WithoutSigns(typed) != WithoutSigns(Corrected(change).text)) {
    return CorrectionRule::NumberChanged;
  }
  return IsDigit(typed.front()) ? CorrectionRule::SignLost : CorrectionRule::Number;
}

// M says that the name was misspelt, not that it is another one.
CorrectionRule RuleFinder::FindStreet(const AlignedPiece& change) const {
  if (!change.HasTyped() || !change.HasCorrected()) {
    return FindPlain(change);
  }
  const std::wstring before = Letters(typed_, change.typedBegin, change.typedEnd);
  const std::wstring after = Letters(corrected_, change.correctedBegin, change.correctedEnd);
  if (WithoutSigns(before) == WithoutSigns(after)) {
    return CorrectionRule::SignLost;
  }
  if (HasDigit(before) || HasDigit(after)) {
    return CorrectionRule::NumberChanged;
  }
  if (!Says(kNameNotes)) {
    return CorrectionRule::StreetChanged;
  }
  const std::size_t most = std::max<std::size_t>(1, std::max(before.size(), after.size()) / 3);
  return LettersApart(before, after) <= most ? CorrectionRule::SpellingOfStreet
                                             : CorrectionRule::StreetOther;
}

CorrectionRule RuleFinder::FindUnit(const AlignedPiece& change) const {
  const auto isUnit = [](const LabelWord& word) {
    return !WordForms::Get().Unit(word.text).empty();
  };
  const bool wasUnit = change.HasTyped() && isUnit(Typed(change));
  const bool becameUnit = change.HasCorrected() && isUnit(Corrected(change));
  const std::size_t next = change.typedEnd;
  if (becameUnit && !change.HasTyped() && next < typed_.words.size() &&
      typed_.words[next].afterNumberSign) {
    return CorrectionRule::UnitDesignator;  // # 4
  }
  const std::size_t value = change.correctedEnd;
  const bool becameSign = wasUnit && !change.HasCorrected() && value < corrected_.words.size() &&
                          corrected_.words[value].afterNumberSign;
  if (becameSign || (wasUnit && becameUnit)) {
    return Says(kUnitNotes) ? CorrectionRule::UnitDesignator : CorrectionRule::UnitChanged;
  }
  return FindPlain(change);
}

CorrectionRule RuleFinder::FindCity(const AlignedPiece& change) const {
  if (!change.HasCorrected()) {
    return CorrectionRule::WordLost;
  }
  if (!change.HasTyped() && RepeatsStreet(change)) {
    return CorrectionRule::WordDoubled;
  }
  const bool isMissing = !change.HasTyped() && !WasTyped(Role::City) && WasTyped(Role::Zip);
  return isMissing || Says(kPlaceNotes) ? CorrectionRule::CityOfZip : CorrectionRule::CityChanged;
}

// A street's last word that is put into the place of a city that is missing: PARKWAY below PKWY.
bool RuleFinder::RepeatsStreet(const AlignedPiece& change) const {
  if (change.correctedBegin == 0 || change.correctedEnd - change.correctedBegin != 1) {
    return false;
  }
  const WordForms& forms = WordForms::Get();
  const std::wstring& city = Corrected(change).text;
  const std::wstring& street = corrected_.words[change.correctedBegin - 1].text;
  const auto isSame = [](std::wstring_view one, std::wstring_view other) {
    return !one.empty() && one == other;
  };
  return city == street || isSame(forms.Suffix(city), forms.Suffix(street)) ||
         isSame(forms.Direction(city), forms.Direction(street));
}

CorrectionRule RuleFinder::FindState(const AlignedPiece& change) const {
  if (!change.HasCorrected()) {
    return CorrectionRule::WordLost;
  }
  const bool isMissing = !change.HasTyped() && !WasTyped(Role::State);
  return isMissing || Says(kPlaceNotes) ? CorrectionRule::StateOfZip : CorrectionRule::StateChanged;
}

CorrectionRule RuleFinder::FindZip(const AlignedPiece& change) const {
  if (!change.HasCorrected()) {
    return CorrectionRule::ZipLost;
  }
  return !change.HasTyped() || Says(kZipNotes) ? CorrectionRule::ZipOfStreet
                                               : CorrectionRule::ZipChanged;
}

CorrectionRule RuleFinder::FindZip4(const AlignedPiece& change) const {
  if (!change.HasCorrected()) {
    return CorrectionRule::Zip4Lost;
  }
  return change.HasTyped() ? CorrectionRule::Zip4Changed : CorrectionRule::Zip4Added;
}

CorrectionRule RuleFinder::FindUrbanization(const AlignedPiece& change) const {
  return change.HasCorrected() && Says(kElementNotes) ? CorrectionRule::Urbanization
                                                      : FindPlain(change);
}

// NO in front of a number that stays.
bool RuleFinder::IsNoiseWord(const AlignedPiece& change) const {
  const std::wstring& word = Typed(change).text;
  return change.typedEnd - change.typedBegin == 1 && !change.HasCorrected() &&
         IsDeliveryLine(typed_.roles[change.typedBegin]) &&
         (word == L"NO" || word == L"NUM" || word == L"NUMBER") &&
         change.typedEnd < typed_.words.size() && HasDigit(typed_.words[change.typedEnd].text);
}

// The same words stand right in front of the added ones, or right after them.
bool RuleFinder::IsDoubled(const AlignedPiece& change) const {
  const std::vector<LabelWord>& words = corrected_.words;
  const std::size_t begin = change.correctedBegin;
  const std::size_t end = change.correctedEnd;
  const std::size_t size = end - begin;
  const auto repeats = [&words, size](std::size_t one, std::size_t other) {
    for (std::size_t i = 0; i < size; ++i) {
      if (words[one + i].text != words[other + i].text) {
        return false;
      }
    }
    return true;
  };
  return (begin >= size && repeats(begin - size, begin)) ||
         (end + size <= words.size() && repeats(begin, end));
}

CorrectionRule RuleFinder::FindPlain(const AlignedPiece& change) const {
  if (!change.HasTyped()) {
    return IsDoubled(change)                  ? CorrectionRule::WordDoubled
           : HasDigit(Corrected(change).text) ? CorrectionRule::NumberAdded
                                              : CorrectionRule::WordAdded;
  }
  if (!change.HasCorrected()) {
    return IsNoiseWord(change)            ? CorrectionRule::Number
           : HasDigit(Typed(change).text) ? CorrectionRule::NumberLost
                                          : CorrectionRule::WordLost;
  }
  const std::wstring& typed = Typed(change).text;
  if (!HasDigit(typed)) {
    return CorrectionRule::WordChanged;
  }
  return WithoutSigns(typed) == WithoutSigns(Corrected(change).text)
             ? CorrectionRule::SignLost
             : CorrectionRule::NumberChanged;
}

}  // namespace postwright
