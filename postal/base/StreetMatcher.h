#ifndef POSTWRIGHT_POSTAL_BASE_STREETMATCHER_H_
#define POSTWRIGHT_POSTAL_BASE_STREETMATCHER_H_

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "postal/base/Explanation.h"
#include "postal/base/JoinedReader.h"
#include "postal/base/StreetLikeness.h"

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
  KnownStreet street;                // of NoNumber and Found: as it is to be written
  std::vector<KnownStreet> several;  // of Several, and of NoNumber where more than one has the name
  NumberFacts facts;                 // of the number on it
  bool guessed = false;              // the street is another than was asked for, by one mistake
  bool nameChanged = false;          // the name was misspelt, or written differently
  bool elementChanged = false;  // a directional, a suffix or an urbanization was missing or wrong

  // Returns the streets of the base that could be meant.
  std::vector<KnownStreet> Streets() const;

  // Says whether the number is known just as it was asked for: with the unit, or without one. A
  // range knows of no units.
  bool IsWhole(const std::string& unit) const;
};

// An address in a ZIP code, standard.
struct StreetQuestion {
  StreetName street;
  std::string number;
  std::string unit;  // "APT 4"; empty for none
};

// Finds the street that is meant among those of a ZIP code.
//
//   StreetMatcher(reader, nullptr).Match("78701", {street, "12", ""});
//
// A street as it was asked for, or only written differently, is taken where the number is known on
// it. Otherwise one is guessed: the only street with the number that differs by one mistake, or,
// where there is none, that has more than one element which is missing. Where a street that is
// there can be meant, and not with the number, the guessed one must be right in all else: it has
// the unit, and no name of a street ends in what would be its wrong suffix. Where a source does not
// know all streets of the ZIP code nothing that was written is doubted, but for its spelling. Of
// several streets the one is taken whose building has the unit, or else none; a number is never
// changed. Borrows both; `explanation` may be null.
class StreetMatcher {
 public:
  StreetMatcher(JoinedReader& reader, Explanation* explanation)
      : reader_(reader), explanation_(explanation) {}

  StreetMatch Match(const std::string& zip, const StreetQuestion& asked);

  // The same without a guess.
  StreetMatch MatchAsWritten(const std::string& zip, const StreetQuestion& asked);

  // The same in several ZIP codes: those in which one or several streets have the number.
  using Matches = std::vector<std::pair<std::string, StreetMatch>>;  // by their ZIP codes
  Matches MatchAsWritten(const std::vector<std::string>& zips, const StreetQuestion& asked);

  // Returns the number of the same street that has the unit and differs from the one asked for by
  // two neighbouring digits that changed places, where no unit of the latter is known; empty for
  // none.
  std::string FindSwapped(const StreetMatch& match, const StreetQuestion& asked);

 private:
  struct Candidate;
  struct Writings;

  // `among` are the streets that can be meant by the same words; null: any of the ZIP code.
  using Streets = std::vector<KnownStreet>;
  StreetMatch MatchAsWritten(const std::string& zip, const StreetQuestion& asked,
                             const Writings& writings);
  StreetMatch MatchExactly(const std::string& zip, const StreetQuestion& asked,
                           const Streets* among = nullptr);
  void LookWithoutSuffix(const std::string& zip, const StreetQuestion& asked, const Streets* among,
                         StreetMatch& match);
  std::optional<int64_t> FindExactly(const std::string& zip, const StreetName& asked,
                                     const Streets* among);
  StreetMatch Guess(const std::string& zip, const StreetQuestion& asked, Likeness most);
  StreetMatch Choose(std::vector<Candidate> candidates, const StreetQuestion& asked);
  static StreetMatch Take(Candidate candidate, const StreetName& asked);

  JoinedReader& reader_;
  Explanation* explanation_;
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_BASE_STREETMATCHER_H_
