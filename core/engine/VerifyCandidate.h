#ifndef POSTWRIGHT_CORE_ENGINE_VERIFYCANDIDATE_H_
#define POSTWRIGHT_CORE_ENGINE_VERIFYCANDIDATE_H_

#include <postwright/AddressMatch.h>

#include <cstddef>
#include <string>

namespace postwright {

// An address that could have been meant, or a run of them, as a service names it to those who ask
// (ReportingServices::WantCandidates). Plain values; UTF-8.
struct VerifyCandidate {
  static constexpr std::size_t kMost = 50;  // in one reply

  std::string above;   // lines in front of the delivery line that are not part of the address
  std::string street;  // the delivery line, but for what a range stands for
  std::string urbanization;
  std::string city;
  std::string state;
  std::string zip5;
  AddressRangeType primaryType = AddressRangeTypeNone;  // house numbers, in front of the street
  std::string primaryLow;  // "100"; empty for no range, as the high end
  std::string primaryHigh;
  AddressRangeType secondaryType = AddressRangeTypeNone;  // units, after it
  std::string secondaryLow;
  std::string secondaryHigh;
  std::string recordType;  // one letter: S a street, H a building with units, P a box
};

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_ENGINE_VERIFYCANDIDATE_H_
