#ifndef POSTWRIGHT_POSTAL_BASE_ADDRESSMATCHER_H_
#define POSTWRIGHT_POSTAL_BASE_ADDRESSMATCHER_H_

#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "postal/base/AddressConfirmer.h"
#include "postal/base/AskedAddress.h"
#include "postal/base/CandidateFinder.h"
#include "postal/base/CityZips.h"
#include "postal/base/Explanation.h"
#include "postal/base/JoinedReader.h"
#include "postal/base/StreetMatcher.h"
#include "postal/places/LastLine.h"
#include "postal/places/ZipList.h"

namespace postwright::postal {

// Decides on an address with an address base; docs/address-base.md is the table of its rules.
//
//   AddressMatcher(zips, reader, nullptr).Match(question);
//
// It confirms what a source names, corrects what can only be meant in one way, and leaves the rest
// as it was asked for. Where that leaves a choice, `candidates` is told of it. Borrows all;
// `explanation` and `candidates` may be null. One thread.
class AddressMatcher {
 public:
  using Answer = std::variant<MatchedAddress, Rejection>;

  AddressMatcher(const ZipList& zips, JoinedReader& reader, Explanation* explanation,
                 CandidateFinder* candidates = nullptr)
      : zips_(zips),
        reader_(reader),
        explanation_(explanation),
        candidates_(candidates),
        places_(zips, reader),
        streets_(reader, explanation),
        confirmer_(reader, explanation, candidates, streets_) {}

  Answer Match(const AddressQuestion& question);

 private:
  using Matches = StreetMatcher::Matches;

  // These fill `answer`, or tell why there is none.
  std::optional<Rejection> Decide(const AskedAddress& subject, MatchedAddress& answer);
  std::optional<PlacedLine> PlaceInNewZip(const AddressQuestion& question);
  std::optional<Rejection> MatchInZip(const AskedAddress& subject, MatchedAddress& answer);
  std::optional<Rejection> MatchInCity(const AskedAddress& subject, Rejection otherwise,
                                       MatchedAddress& answer);
  std::optional<Rejection> Accept(const AskedAddress& subject, const StreetMatch& match,
                                  MatchedAddress& answer);
  std::optional<Rejection> LeaveUnconfirmed(const AskedAddress& subject, const StreetMatch& match,
                                            MatchedAddress& answer);
  std::optional<Rejection> CheckCity(const AskedAddress& subject, const StreetMatch& match,
                                     MatchedAddress& answer);
  void TakeZip(const AskedAddress& subject, const Matches::value_type& found,
               MatchedAddress& answer);
  StreetMatch MatchStreet(const std::string& zip, const StreetQuestion& asked);
  void PreferCity(const LastLine& asked, MatchedAddress& answer);

  void KeepAcceptedCity(const LastLine& asked, PlacedLine& placed);
  Rejection LeaveOpen(const AskedAddress& subject, const PlacedLine& place, const Matches& matches);
  static bool IsOnlyOne(const Matches& matches);

  const ZipList& zips_;
  JoinedReader& reader_;
  Explanation* explanation_;
  CandidateFinder* candidates_;
  CityZips places_;
  StreetMatcher streets_;
  AddressConfirmer confirmer_;
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_BASE_ADDRESSMATCHER_H_
