#include "postal/places/LastLine.h"

#include "common/AsciiText.h"
#include "postal/places/CityName.h"
#include "postal/words/Lexicon.h"

namespace postwright::postal {
namespace {

enum class ZipForm { Absent, Malformed, WellFormed };

// The military "state" of a ZIP code (USPS Publication 28, section 225; Postal Bulletin 22414): 340
// AA, 090 to 098 AE, 962 to 966 AP; empty for a civil one.
std::string_view MilitaryState(const std::string& zip5) {
  if (zip5.empty()) {
    return {};
  }
  const int prefix = std::stoi(zip5.substr(0, 3));
  return prefix == 340                    ? "AA"
         : prefix >= 90 && prefix <= 98   ? "AE"
         : prefix >= 962 && prefix <= 966 ? "AP"
                                          : "";
}

}  // namespace

struct LastLineChecker::Reading {
  explicit Reading(const LastLine& asked) : city(StandardCity(asked.city)) {
    const std::string givenState = TidyLine(asked.state);
    stateGiven = !givenState.empty();
    state = Lexicon::Get().State(givenState);
    const std::string zip = TidyLine(asked.zip);
    zip5 = Zip5Of(zip);
    zipForm = zip.empty()    ? ZipForm::Absent
              : zip5.empty() ? ZipForm::Malformed
                             : ZipForm::WellFormed;
  }

  // The answer where this city, state and ZIP are right.
  PlacedLine Place(const std::string& rightCity, const std::string& rightState,
                   const std::string& rightZip) const {
    return {rightCity, rightState, rightZip, zip5 != rightZip,
            (!city.empty() && city != rightCity && CityKey(rightCity) != Key()) ||
                (stateGiven && state != rightState)};
  }

  // The city's key, which few questions need.
  std::string Key() const { return CityKey(city); }

  std::string city;
  bool stateGiven = false;
  std::string state;  // empty where none was given and where there is no such state
  ZipForm zipForm = ZipForm::Absent;
  std::string zip5;
};

std::string LastLineChecker::Zip5Of(const std::string& zip) {
  const std::string_view plus4 = std::string_view(zip).substr(std::min<size_t>(zip.size(), 5));
  const bool known = plus4.empty() || (plus4.size() == 4 && AllDigits(plus4)) ||
                     (plus4.size() == 5 && plus4[0] == '-' && AllDigits(plus4.substr(1)));
  const std::string zip5 = zip.substr(0, 5);
  return known && zip5.size() == 5 && AllDigits(zip5) ? zip5 : std::string();
}

std::string LastLineChecker::StateOf(const std::string& state) {
  return std::string(Lexicon::Get().State(TidyLine(state)));
}

bool LastLineChecker::IsMilitary(std::string_view city, std::string_view state) {
  return Lexicon::Get().IsMilitaryCity(city) || Lexicon::Get().IsMilitaryState(state);
}

std::variant<PlacedLine, Rejection> LastLineChecker::Check(const LastLine& asked) const {
  const Reading reading(asked);
  if (Lexicon::Get().IsMilitaryCity(reading.city) || !MilitaryState(reading.zip5).empty()) {
    return CheckMilitary(reading);
  }
  if (const ZipList::City* ofZip = zips_.FindZip(reading.zip5)) {
    return CheckKnownZip(reading, *ofZip);
  }
  return CheckCityAndState(reading);
}

// A military address names a post office, never a place: whatever else stands there is replaced.
// The ZIP list does not hold every military ZIP, nor tell which are DPO, so both are taken as they
// come.
LastLineChecker::Result LastLineChecker::CheckMilitary(const Reading& asked) const {
  const std::string state(MilitaryState(asked.zip5));
  if (state.empty()) {
    return asked.zipForm == ZipForm::Absent ? Rejection::Multiple : Rejection::InvalidZip;
  }
  if (Lexicon::Get().IsMilitaryCity(asked.city)) {
    return asked.Place(asked.city, state, asked.zip5);
  }
  const ZipList::City* ofZip = zips_.FindZip(asked.zip5);
  return ofZip == nullptr ? Result(Rejection::InvalidCity)
                          : Result(asked.Place(ofZip->name, state, asked.zip5));
}

LastLineChecker::Result LastLineChecker::CheckKnownZip(const Reading& asked,
                                                       const ZipList::City& ofZip) const {
  return asked.state == ofZip.state || !asked.stateGiven ? KeepState(asked, ofZip)
                                                         : DecideState(asked, ofZip);
}

// The state agrees with the ZIP, or follows from it: only the city can be wrong.
LastLineChecker::Result LastLineChecker::KeepState(const Reading& asked,
                                                   const ZipList::City& ofZip) const {
  const auto takeBase = [&] { return asked.Place(ofZip.name, ofZip.state, asked.zip5); };
  if (asked.city.empty()) {
    return takeBase();
  }
  const CityFit fit = CompareCity(asked.city, ofZip.name);
  if (fit == CityFit::Same || fit == CityFit::Abbreviation) {
    return takeBase();
  }
  if (const ZipList::City* own = zips_.FindCity(asked.Key(), ofZip.state)) {
    return asked.Place(own->name, ofZip.state, asked.zip5);  // its neighbour may be accepted there
  }
  if (fit == CityFit::Near || fit == CityFit::Part) {
    return takeBase();
  }
  if (zips_.IsCityAnywhere(asked.Key())) {
    return asked.stateGiven ? Result(takeBase()) : Result(Rejection::InvalidCity);
  }
  if (!Lexicon::Get().State(asked.city).empty()) {
    return Rejection::InvalidCity;  // PENNSYLVANIA in Pennsylvania is no other name of a city
  }
  return asked.Place(asked.city, ofZip.state, asked.zip5);
}

// The state differs from the ZIP's, or is none: the city decides between them.
LastLineChecker::Result LastLineChecker::DecideState(const Reading& asked,
                                                     const ZipList::City& ofZip) const {
  const CityFit fit = asked.city.empty() ? CityFit::Different : CompareCity(asked.city, ofZip.name);
  const bool fitsZip = fit != CityFit::Different && fit != CityFit::Part;
  const ZipList::City* own = zips_.FindCity(asked.Key(), asked.state);
  if (fitsZip) {
    return own == nullptr ? Result(asked.Place(ofZip.name, ofZip.state, asked.zip5))
                          : Result(Rejection::Multiple);
  }
  if (asked.state.empty()) {
    return Rejection::InvalidState;
  }
  return CheckCityAndState(asked);
}

// There is no ZIP to go by: none was given, there is no such ZIP, or it lies in another state.
LastLineChecker::Result LastLineChecker::CheckCityAndState(const Reading& asked) const {
  const bool wrongZip = asked.zipForm != ZipForm::Absent;
  if (asked.stateGiven && asked.state.empty()) {
    return Rejection::InvalidState;
  }
  if (asked.state.empty() || asked.city.empty()) {
    return wrongZip               ? Rejection::InvalidZip
           : !asked.city.empty()  ? Rejection::InvalidState
           : !asked.state.empty() ? Rejection::InvalidCity
                                  : Rejection::InvalidAddress;
  }
  const ZipList::City* own = zips_.FindCity(asked.Key(), asked.state);
  if (own == nullptr) {
    own = zips_.FindNearCity(asked.Key(), asked.state);
  }
  if (own == nullptr) {
    return wrongZip && zips_.FindZip(asked.zip5) == nullptr ? Rejection::InvalidZip
                                                            : Rejection::InvalidCity;
  }
  if (own->zips.size() > 1) {
    return wrongZip ? Rejection::InvalidZip : Rejection::Multiple;
  }
  return asked.Place(own->name, own->state, own->zips.front());
}

}  // namespace postwright::postal
