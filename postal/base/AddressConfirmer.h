#ifndef POSTWRIGHT_POSTAL_BASE_ADDRESSCONFIRMER_H_
#define POSTWRIGHT_POSTAL_BASE_ADDRESSCONFIRMER_H_

#include <string>

#include "postal/base/AskedAddress.h"
#include "postal/base/CandidateFinder.h"
#include "postal/base/Explanation.h"
#include "postal/base/JoinedReader.h"
#include "postal/base/StreetMatcher.h"
#include "postal/places/LastLine.h"

namespace postwright::postal {

// An address with what the base knows of it.
struct MatchedAddress {
  PlacedLine placed;
  DeliveryLines lines;
  std::string zip4;  // empty where no source gives it
  DeliveryFacts delivery;
  char confirmation = 'N';      // Y, D, S or N
  std::string dpvFootnotes;     // empty where nothing was looked up
  bool nameChanged = false;     // the street was misspelt
  bool elementChanged = false;  // a directional, suffix or designator was missing or wrong
  bool unitIsMissing = false;   // the building has units, and none was asked for
};

// Says of an address whose street was found, or which is a box, what the base confirms of it.
// Borrows all, as AddressMatcher does. One thread.
class AddressConfirmer {
 public:
  AddressConfirmer(JoinedReader& reader, Explanation* explanation, CandidateFinder* candidates,
                   StreetMatcher& streets)
      : reader_(reader), explanation_(explanation), candidates_(candidates), streets_(streets) {}

  // These fill `answer`, whose place is told and whose lines are those that were asked for.
  void Confirm(const AskedAddress& subject, const StreetMatch& match, MatchedAddress& answer);
  void ConfirmBox(MatchedAddress& answer);

 private:
  void ConfirmUnit(const AskedAddress& subject, const StreetMatch& match, MatchedAddress& answer);
  void DoubtUnit(const AskedAddress& subject, const StreetMatch& match, MatchedAddress& answer);

  JoinedReader& reader_;
  Explanation* explanation_;
  CandidateFinder* candidates_;
  StreetMatcher& streets_;
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_BASE_ADDRESSCONFIRMER_H_
