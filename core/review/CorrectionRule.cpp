#include <postwright/CorrectionRule.h>

#include <algorithm>
#include <iterator>

namespace postwright {

namespace {

struct RuleRow {
  CorrectionRule rule;
  const char* code;
  const char* text;
};

// clang-format off
constexpr RuleRow kRules[] = {
    {CorrectionRule::Suffix, "suffix", "suffix in standard form"},
    {CorrectionRule::Directional, "directional", "directional in standard form"},
    {CorrectionRule::Unit, "unit", "unit in standard form"},
    {CorrectionRule::State, "state", "state in standard form"},
    {CorrectionRule::Box, "box", "post-office box in standard form"},
    {CorrectionRule::Route, "route", "route in standard form"},
    {CorrectionRule::Highway, "highway", "highway in standard form"},
    {CorrectionRule::Number, "number", "number in standard form"},
    {CorrectionRule::City, "city", "city in standard form"},
    {CorrectionRule::Word, "word", "word of the street in standard form"},
    {CorrectionRule::Spacing, "spacing", "written in one or apart"},
    {CorrectionRule::Accent, "accent", "accent"},
    {CorrectionRule::UnitPlace, "unit-place", "unit after the street"},
    {CorrectionRule::UrbPlace, "urbanization-place", "order of a Puerto Rican address"},
    {CorrectionRule::SpellingOfStreet, "spelling", "spelling of the street"},
    {CorrectionRule::SpellingOfCity, "city-spelling", "spelling of the city"},
    {CorrectionRule::ZipOfStreet, "zip-of-street", "ZIP code of this street"},
    {CorrectionRule::CityOfZip, "city-of-zip", "city of this ZIP code"},
    {CorrectionRule::StateOfZip, "state-of-zip", "state of this ZIP code"},
    {CorrectionRule::Zip4Added, "zip4-added", "ZIP+4 added"},
    {CorrectionRule::Zip4Changed, "zip4-changed", "ZIP+4 of this address"},
    {CorrectionRule::Zip4Dropped, "zip4-dropped", "ZIP+4 of another address dropped"},
    {CorrectionRule::SuffixAdded, "suffix-added", "suffix added"},
    {CorrectionRule::SuffixChanged, "suffix-changed", "suffix of this street"},
    {CorrectionRule::SuffixDropped, "suffix-dropped", "suffix dropped"},
    {CorrectionRule::DirectionalAdded, "directional-added", "directional added"},
    {CorrectionRule::DirectionalChanged, "directional-changed", "directional of this street"},
    {CorrectionRule::DirectionalDropped, "directional-dropped", "directional dropped"},
    {CorrectionRule::UnitDesignator, "unit-designator", "what the unit is called"},
    {CorrectionRule::Urbanization, "urbanization", "urbanization of this address"},
    {CorrectionRule::NumberChanged, "number-changed", "another number"},
    {CorrectionRule::NumberAdded, "number-added", "number added"},
    {CorrectionRule::NumberLost, "number-lost", "number lost"},
    {CorrectionRule::NumberMoved, "number-moved", "number in another place"},
    {CorrectionRule::SignLost, "sign-lost", "sign lost within a number"},
    {CorrectionRule::WordChanged, "word-changed", "another word"},
    {CorrectionRule::WordAdded, "word-added", "word added"},
    {CorrectionRule::WordLost, "word-lost", "word lost"},
    {CorrectionRule::WordMoved, "word-moved", "word in another place"},
    {CorrectionRule::WordDoubled, "word-doubled", "word doubled"},
    {CorrectionRule::WordCrossed, "word-crossed", "word on another line"},
    {CorrectionRule::LineCut, "line-cut", "line cut in two"},
    {CorrectionRule::RouteLeft, "route-left", "box separated from its route"},
    {CorrectionRule::StreetChanged, "street-changed", "another street name"},
    {CorrectionRule::StreetOther, "street-other", "another street than can be meant"},
    {CorrectionRule::SuffixUnexplained, "suffix-unexplained", "another suffix"},
    {CorrectionRule::DirectionalUnexplained, "directional-unexplained", "another directional"},
    {CorrectionRule::UnitChanged, "unit-changed", "another unit"},
    {CorrectionRule::ZipChanged, "zip-changed", "another ZIP code"},
    {CorrectionRule::ZipLost, "zip-lost", "ZIP code lost"},
    {CorrectionRule::Zip4Lost, "zip4-lost", "ZIP+4 lost"},
    {CorrectionRule::CityChanged, "city-changed", "another city"},
    {CorrectionRule::StateChanged, "state-changed", "another state"},
    {CorrectionRule::UnitSignLost, "unit-sign-lost", "number sign of a unit lost"},
    {CorrectionRule::TooLong, "too-long", "too much differs"},
};
// clang-format on

constexpr RuleRow kUnknown = {CorrectionRule::TooLong, "unknown", "unknown rule"};

const RuleRow& Row(CorrectionRule rule) {
  const RuleRow* const found =
      std::find_if(std::begin(kRules), std::end(kRules),
                   [rule](const RuleRow& row) { return row.rule == rule; });
  return found == std::end(kRules) ? kUnknown : *found;
}

}  // namespace

const char* CorrectionRuleCode(CorrectionRule rule) {
  return Row(rule).code;
}

const char* CorrectionRuleText(CorrectionRule rule) {
  return Row(rule).text;
}

bool IsDoubt(CorrectionRule rule) {
  return Row(rule).rule >= CorrectionRule::NumberChanged;
}

}  // namespace postwright
