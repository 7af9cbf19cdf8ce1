#ifndef POSTWRIGHT_POSTAL_BASE_CANDIDATESPANS_H_
#define POSTWRIGHT_POSTAL_BASE_CANDIDATESPANS_H_

#include <string>
#include <vector>

#include "postal/base/BaseReader.h"
#include "postal/base/Candidate.h"

namespace postwright::postal {

// House numbers in a person's order, with what tells how far they are from another.
struct HouseSpan {
  CandidateSpan span;  // of a single house the low end is the high one
  std::string prefix;  // of both ends, "112-"
  int64_t low = 0;
  int64_t high = 0;
};

// Returns the spans of a street: its ranges, and the numbers that none of them holds, taken
// together by hundreds and side of the street, in ascending order.
std::vector<HouseSpan> SpansOfHouses(const std::vector<KnownRange>& ranges,
                                     const std::vector<std::string>& numbers);

// Units of one kind, of which all are there.
struct UnitSpan {
  std::string designator;  // "APT", "BLDG 4 APT", "#"; empty for none
  CandidateSpan span;      // of a single unit the low end is the high one; empty for "BSMT"
};

// Returns the spans of a building's units ("APT 4"): by designator, each in ascending order.
std::vector<UnitSpan> SpansOfUnits(std::vector<std::string> units);

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_BASE_CANDIDATESPANS_H_
