#ifndef POSTWRIGHT_SERVICE_BASE_ADDRESSMATCHER_H_
#define POSTWRIGHT_SERVICE_BASE_ADDRESSMATCHER_H_

#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "service/address/LastLine.h"
#include "service/address/Standardiser.h"
#include "service/address/ZipBase.h"
#include "service/base/BaseReader.h"
#include "service/base/Explanation.h"
#include "service/base/StreetMatcher.h"

namespace postwright::service {

// An address as far as it is known without streets.
struct AddressQuestion {
  LastLine asked;                                // folded, as it came
  std::variant<PlacedLine, Rejection> lastLine;  // what LastLineChecker said of it
  std::string state;                             // that the lines were standardised for
  StandardLines lines;
};

// The same with what the base knows of it.
struct AddressMatch {
  PlacedLine placed;
  DeliveryLines lines;
  std::string zip4;             // empty where no source gives it
  char confirmation = 'N';      // Y, D, S or N
  std::string dpvFootnotes;     // empty where nothing was looked up
  bool nameChanged = false;     // the street was misspelt
  bool elementChanged = false;  // a directional, suffix or designator was missing or wrong
  bool unitIsMissing = false;   // the building has units, and none was asked for
};

// Decides on an address with an address base; docs/address-base.md is the table of its rules.
//
//   AddressMatcher(zips, reader, nullptr).Match(question);
//
// It confirms what a source names, corrects what can only be meant in one way, and leaves the rest
// as it was asked for. Borrows all three; `explanation` may be null. One thread.
class AddressMatcher {
 public:
  using Answer = std::variant<AddressMatch, Rejection>;

  AddressMatcher(const ZipBase& zips, BaseReader& reader, Explanation* explanation)
      : zips_(zips), reader_(reader), explanation_(explanation), streets_(reader, explanation) {}

  Answer Match(const AddressQuestion& question);

 private:
  struct Subject;

  // These fill `answer`, or tell why there is none.
  std::optional<Rejection> Decide(const Subject& subject, AddressMatch& answer);
  std::optional<PlacedLine> PlaceInNewZip(const AddressQuestion& question);
  std::optional<Rejection> MatchInZip(const Subject& subject, AddressMatch& answer);
  std::optional<Rejection> MatchInCity(const Subject& subject, Rejection otherwise,
                                       AddressMatch& answer);
  std::optional<Rejection> LeaveUnconfirmed(const StreetMatch& match, AddressMatch& answer);
  std::optional<Rejection> CheckCity(const Subject& subject, AddressMatch& answer);
  void Confirm(const Subject& subject, const StreetMatch& match, AddressMatch& answer);
  void ConfirmUnit(const Subject& subject, const StreetMatch& match, AddressMatch& answer);
  void KeepAcceptedCity(const LastLine& asked, PlacedLine& placed);
  std::vector<std::string> ZipsOf(const std::string& city, const std::string& state);
  std::vector<std::pair<std::string, StreetMatch>> FindElsewhere(
      const Subject& subject, const std::vector<std::string>& zips);

  const ZipBase& zips_;
  BaseReader& reader_;
  Explanation* explanation_;
  StreetMatcher streets_;
};

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_BASE_ADDRESSMATCHER_H_
