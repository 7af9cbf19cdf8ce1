#include "core/review/DoubtReason.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace postwright {

namespace {

// %1 stands for the words as typed, %2 for those as corrected.
struct ReasonRow {
  CorrectionRule rule;
  const wchar_t* sentence;
};

// clang-format off
constexpr ReasonRow kReasons[] = {
    {CorrectionRule::NumberChanged, L"The number “%1” became “%2”."},
    {CorrectionRule::NumberAdded, L"The number “%2” was not typed."},
    {CorrectionRule::NumberLost, L"The number “%1” is lost."},
    {CorrectionRule::NumberMoved, L"The number “%2” is not where it was typed."},
    {CorrectionRule::SignLost, L"“%1” became “%2”: a sign within a number is lost."},
    {CorrectionRule::WordChanged, L"“%1” became “%2”."},
    {CorrectionRule::WordAdded, L"“%2” was not typed."},
    {CorrectionRule::WordLost, L"“%1” is lost."},
    {CorrectionRule::WordMoved, L"“%2” is not where it was typed."},
    {CorrectionRule::WordDoubled, L"“%2” was typed once and is there twice."},
    {CorrectionRule::WordCrossed, L"“%2” is on another line than it was typed on."},
    {CorrectionRule::LineCut, L"The line was cut in two in front of “%2”."},
    {CorrectionRule::RouteLeft, L"The box was separated from its route: “%1” became “%2”."},
    {CorrectionRule::StreetChanged, L"The street “%1” became “%2”, and the service did not say why."},
    {CorrectionRule::StreetOther, L"The street “%1” became “%2”, which can hardly be meant."},
    {CorrectionRule::SuffixUnexplained, L"The street's suffix “%1” became “%2”, and the service did not say why."},
    {CorrectionRule::DirectionalUnexplained, L"The directional “%1” became “%2”, and the service did not say why."},
    {CorrectionRule::UnitChanged, L"The unit “%1” became “%2”, and the service did not say why."},
    {CorrectionRule::ZipChanged, L"The ZIP code “%1” became “%2”, and the service did not say why."},
    {CorrectionRule::ZipLost, L"The ZIP code “%1” is lost."},
    {CorrectionRule::Zip4Lost, L"The ZIP+4 “%1” is lost, though the address is the same."},
    {CorrectionRule::CityChanged, L"The city “%1” became “%2”, and the service did not say why."},
    {CorrectionRule::StateChanged, L"The state “%1” became “%2”, and the service did not say why."},
    {CorrectionRule::UnitSignLost, L"The number sign in front of “%1” is lost, which said that it is a unit."},
    {CorrectionRule::TooLong, L"More words differ than can be compared."},
};
// clang-format on

// Words as they are in a sentence: on one line, and not too many.
std::wstring Quoted(const std::wstring& words) {
  constexpr std::size_t kLongest = 60;
  if (words.empty()) {
    return L"nothing";
  }
  std::wstring quoted = words.substr(0, kLongest);
  std::replace_if(
      quoted.begin(), quoted.end(), [](wchar_t c) { return c >= 0 && c < L' '; }, L' ');
  return L"“" + quoted + (words.size() > kLongest ? L"…”" : L"”");
}

void Put(std::wstring& sentence, std::wstring_view place, const std::wstring& words) {
  const std::size_t at = sentence.find(place);
  if (at != std::wstring::npos) {
    sentence.replace(at, place.size(), Quoted(words));
  }
}

}  // namespace

std::wstring DoubtReason(CorrectionRule rule, const std::wstring& typed,
                         const std::wstring& corrected) {
  const ReasonRow* const row =
      std::find_if(std::begin(kReasons), std::end(kReasons),
                   [rule](const ReasonRow& candidate) { return candidate.rule == rule; });
  if (row == std::end(kReasons)) {
    return L"The change is not explained.";
  }
  std::wstring sentence = row->sentence;
  Put(sentence, L"“%2”", corrected);
  Put(sentence, L"“%1”", typed);
  return sentence;
}

}  // namespace postwright
