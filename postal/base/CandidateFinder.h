#ifndef POSTWRIGHT_POSTAL_BASE_CANDIDATEFINDER_H_
#define POSTWRIGHT_POSTAL_BASE_CANDIDATEFINDER_H_

#include <string>
#include <vector>

#include "postal/base/Candidate.h"
#include "postal/base/JoinedReader.h"
#include "postal/base/StreetMatcher.h"
#include "postal/lines/Standardiser.h"
#include "postal/places/LastLine.h"

namespace postwright::postal {

// Gathers what could have been meant by an address that leaves a choice: whole addresses of several
// streets, the numbers of a street that has not the one asked for, the units of a building.
//
//   CandidateFinder finder(reader, 50);
//   finder.AddNumbers(lines, placed, match);
//   finder.Take();   // (100 - 198) MAIN ST, (101 - 199) MAIN ST
//
// At most ten streets are read for numbers, of each BaseReader::kMostNumbers ranges and as many
// numbers. Borrows the reader. One thread, one address.
class CandidateFinder {
 public:
  // Gives `most` candidates at most: of numbers those that are nearest to the one asked for.
  CandidateFinder(JoinedReader& reader, size_t most) : reader_(reader), most_(most) {}

  // The address as it was asked for, on each street of `match` that has the number.
  void AddAddresses(const StandardLines& asked, const PlacedLine& placed, const StreetMatch& match);

  // The numbers of the streets that could be meant.
  void AddNumbers(const StandardLines& asked, const PlacedLine& placed, const StreetMatch& match);

  // The units of the building that was found.
  void AddUnits(const StandardLines& asked, const PlacedLine& placed, const StreetMatch& match);

  // Returns what was added, by street and place, numbers ascending.
  std::vector<Candidate> Take();

 private:
  struct Found {
    Candidate candidate;
    StreetName street;
    uint64_t distance = 0;  // from what was asked for
    size_t place = 0;       // in the order of adding
  };

  void Add(const StreetName& street, const PlacedLine& placed, StreetLine line, Candidate facts,
           uint64_t distance);

  JoinedReader& reader_;
  const size_t most_;
  std::vector<Found> found_;
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_BASE_CANDIDATEFINDER_H_
