#include "core/review/WordLikeness.h"

#include <string_view>

#include "core/review/Digits.h"
#include "core/review/LabelWords.h"
#include "core/review/WordForms.h"

namespace postwright {

namespace {

bool AreAlike(std::wstring_view one, std::wstring_view other) {
  return !one.empty() && one == other;
}

// "5" and "5TH".
bool IsOrdinalOf(std::wstring_view number, std::wstring_view ordinal) {
  return IsNumber(number) && ordinal.size() == number.size() + 2 && ordinal.starts_with(number) &&
         !HasDigit(ordinal.substr(number.size()));
}

// One letter makes another directional, suffix or state of one: such words are not misspelt.
bool IsMisspelling(const ComparedWord& typed, const ComparedWord& corrected) {
  constexpr std::size_t kShortest = 3;
  const WordForms& forms = WordForms::Get();
  return !typed.hasDigit && !corrected.hasDigit && typed.text.size() >= kShortest &&
         corrected.text.size() >= kShortest &&
         !(forms.IsStreetWord(typed.text) && forms.IsStreetWord(corrected.text)) &&
         IsOneLetterApart(typed.unaccented, corrected.unaccented);
}

// The rule by which one word of an address is the other in a standard form.
std::optional<CorrectionRule> FindForm(const ComparedWord& typed, const ComparedWord& corrected,
                                       Role role) {
  const WordForms& forms = WordForms::Get();
  const std::wstring& one = typed.text;
  const std::wstring& other = corrected.text;
  if (AreAlike(forms.Suffix(one), forms.Suffix(other))) {
    return CorrectionRule::Suffix;
  }
  if (AreAlike(forms.Direction(one), forms.Direction(other))) {
    return CorrectionRule::Directional;
  }
  if (AreAlike(forms.NumberedUnit(one), forms.NumberedUnit(other)) ||
      AreAlike(forms.PlainUnit(one), forms.PlainUnit(other))) {
    return CorrectionRule::Unit;
  }
  if (AreAlike(forms.Common(one), forms.Common(other))) {
    return CorrectionRule::Word;
  }
  if (role == Role::Street && IsOrdinalOf(one, other)) {
    return CorrectionRule::Number;
  }
  if (role == Role::Unit && typed.plain == corrected.plain &&
      one.find_first_of(L"/.") == std::wstring::npos) {
    return CorrectionRule::Unit;  // 2-A
  }
  return std::nullopt;
}

}  // namespace

ComparedWord::ComparedWord(const std::wstring& word)
    : text(word),
      plain(WithoutSigns(word)),
      unaccented(WithoutAccents(word)),
      hasDigit(HasDigit(word)) {}

std::optional<WordMatch> FindLikeness(const ComparedWord& typed, const ComparedWord& corrected,
                                      Role role) {
  if (role == Role::Name) {
    return typed.plain == corrected.plain ? std::optional(WordMatch{Match::Same}) : std::nullopt;
  }
  if (role == Role::Zip || role == Role::Zip4) {
    return std::nullopt;
  }
  if (typed.unaccented == corrected.unaccented) {
    return WordMatch{Match::Form, CorrectionRule::Accent};
  }
  if (role == Role::State) {
    return std::nullopt;  // its names are phrases
  }
  if (const std::optional<CorrectionRule> rule = FindForm(typed, corrected, role)) {
    return WordMatch{Match::Form, role == Role::City ? CorrectionRule::City : *rule};
  }
  const WordForms& forms = WordForms::Get();
  const bool isMisspelt =
      IsMisspelling(typed, corrected) ||
      (role == Role::Suffix && forms.IsMisspeltSuffix(typed.text, forms.Suffix(corrected.text)));
  return isMisspelt ? std::optional(WordMatch{Match::Spelling}) : std::nullopt;
}

}  // namespace postwright
