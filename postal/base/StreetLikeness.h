#ifndef POSTWRIGHT_POSTAL_BASE_STREETLIKENESS_H_
#define POSTWRIGHT_POSTAL_BASE_STREETLIKENESS_H_

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "common/AsciiText.h"
#include "postal/base/StreetName.h"

namespace postwright::postal {

// How a street that was asked for relates to one that is known; the most alike first.
enum class Likeness {
  Same,  // the same words, or only written differently: S BLVD, SOUTH BLVD; FIFTH ST, 5TH ST
  ElementMissing,   // a suffix, a directional or an urbanization is missing
  ElementWrong,     // a suffix or a directional is another, or one too many
  OneLetter,        // a letter is missing, too many or another, or two neighbours changed places
  ElementsMissing,  // several elements are missing, and none is another
  Different,
};

// Returns a street's name as all its writings are compared: in short forms and without blanks.
std::string ShortStreetName(const std::string& name);

// What tells most streets apart without their names.
struct StreetTraits {
  uint64_t shortLetters = 0;  // the letters and digits that its short name has at all, a bit each
  uint64_t speltLetters = 0;  // and those of the whole street in words spelled out
  uint32_t speltWords = 0;
  bool isRoad = false;  // a numbered one
};

// A known street with what every comparison needs of it, since that takes longer to make than to
// compare.
struct ComparableStreet {
  explicit ComparableStreet(KnownStreet street);

  KnownStreet known;
  std::string key;        // of its name
  std::string shortName;  // joined from the short forms of its words
  Words spelt;            // the whole street in words spelled out
  StreetTraits traits;
};

// Compares a street that was asked for with streets that are known.
//
//   StreetLikeness asked({"", "SUNSET", "HL"});
//   asked.To(StreetName{"", "SUNSET HILL", "RD"});  // ElementMissing
//
// Words are compared over the whole street, since its last word may be a suffix or a part of the
// name whose suffix is missing; what is known tells which. Two mistakes are too many. A digit never
// counts as another one misspelt, nor does a single letter: 5TH ST is not 6TH ST, AVENUE A not
// AVENUE B.
class StreetLikeness {
 public:
  explicit StreetLikeness(const StreetName& asked);

  Likeness To(const ComparableStreet& there) const;
  Likeness To(const StreetName& known) const { return To(ComparableStreet({0, known})); }

  // Says whether To() may give anything but Different for a street that has those traits.
  bool MayBeLike(const StreetTraits& there) const;

  // Says whether To() gives Same, in a fraction of the time.
  bool IsSameAs(const StreetName& known) const;

  // What a known street is to be looked up by where nothing but Same will do: each street that is
  // the same as one asked for, or is that without its suffix, has a writing that is one of the
  // latter's. `shortName` is ShortStreetName of its name.
  Words Writings() const;
  static Words WritingsOf(const StreetName& known, const std::string& shortName);

 private:
  std::optional<int> MissingOf(const ComparableStreet& there) const;
  bool HasAnotherThan(const ComparableStreet& there) const;
  bool IsMisspelt(const ComparableStreet& there) const;

  StreetName asked_;
  std::string urbanization_;
  Words words_;  // in their short forms
  std::string joined_;
  Words spelt_;  // spelled out
  uint64_t joinedLetters_;
  uint64_t speltLetters_;
  bool isRoad_;  // a numbered one
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_BASE_STREETLIKENESS_H_
