#ifndef POSTWRIGHT_POSTAL_BASE_STREETMATCHER_H_
#define POSTWRIGHT_POSTAL_BASE_STREETMATCHER_H_

#include <string>
#include <vector>

#include "postal/base/BaseReader.h"
#include "postal/base/Explanation.h"

namespace postwright::postal {

// How a house number was found on the streets of a ZIP code.
struct StreetMatch {
  enum class Kind {
    NoStreet,  // no street of that name, nor one that could be meant
    NoNumber,  // the street is there, the number is not known on it
    Several,   // several streets fit equally well
    Found,     // one street fits, and the number is known on it
  };

  Kind kind = Kind::NoStreet;
  KnownStreet street;           // of NoNumber and Found: as it is to be written
  NumberFacts facts;            // of the number on it
  bool nameChanged = false;     // the name was misspelt
  bool elementChanged = false;  // a directional, a suffix or an urbanization was missing or wrong
};

// Finds the street that is meant among those of a ZIP code.
//
//   StreetMatcher(reader, nullptr).Match("78701", asked, "12");
//
// A street as it was asked for is taken, whether the number is known on it or not. Otherwise only
// streets on which the number is known can be meant: those of the name with fewest other elements
// missing, or, where none is right without, one wrong; and where the ZIP code has no street of the
// name, those of the one name that is nearest to it by spelling. Of several equally good ones none
// is taken. Borrows both; `explanation` may be null.
class StreetMatcher {
 public:
  StreetMatcher(BaseReader& reader, Explanation* explanation)
      : reader_(reader), explanation_(explanation) {}

  StreetMatch Match(const std::string& zip, const StreetName& asked, const std::string& number);

  // The same without a guess: the street as it was asked for, with the number known on it.
  StreetMatch MatchExactly(const std::string& zip, const StreetName& asked,
                           const std::string& number);

 private:
  struct Candidate;

  StreetMatch Choose(const std::vector<KnownStreet>& streets, const StreetName& asked,
                     const std::string& number, bool mayBeWrong);
  StreetMatch MatchNearName(const std::string& zip, const StreetName& asked,
                            const std::string& number);
  std::string NearestKey(const std::string& zip, const std::string& key);

  BaseReader& reader_;
  Explanation* explanation_;
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_BASE_STREETMATCHER_H_
