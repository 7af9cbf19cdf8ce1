#ifndef POSTWRIGHT_POSTAL_BASE_CANDIDATE_H_
#define POSTWRIGHT_POSTAL_BASE_CANDIDATE_H_

#include <string>

#include "postal/base/HouseNumber.h"

namespace postwright::postal {

// Numbers from one end to the other, as they are written: houses of a street, or units of a
// building. Not every one between the ends needs to be there.
struct CandidateSpan {
  std::string low;  // "100", "1A"; empty for no span
  std::string high;
  Parity parity = Parity::Both;

  bool IsEmpty() const { return low.empty(); }
  bool operator==(const CandidateSpan&) const = default;
};

// An address that could have been meant, or a run of them, standard.
//
//   {"", "MAIN ST", "", "AUSTIN", "TX", "78701", {"100", "198", Parity::Even}, {}, 'S'}
//   {"", "14 N MAIN ST APT", "", "AUSTIN", "TX", "78701", {}, {"1", "6"}, 'H'}
struct Candidate {
  static constexpr size_t kMost = 50;  // in one answer

  std::string above;   // lines in front of the delivery line that are not part of the address
  std::string street;  // the delivery line but for what the spans stand for
  std::string urbanization;
  std::string city;
  std::string state;
  std::string zip5;
  CandidateSpan primary;    // in front of the street
  CandidateSpan secondary;  // after it
  char recordType = 'S';    // S a street, H a building with units, P a box, as in ZIP+4 files

  bool operator==(const Candidate&) const = default;
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_BASE_CANDIDATE_H_
