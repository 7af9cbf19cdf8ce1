#include "client/LabelCandidates.h"

#include "core/label/LabelCandidates.h"

namespace postwright {

void putCandidatesBack(const AddressLines& lines, AddressFix& answer) {
  if (answer.Candidates.isEmpty() || lines.GetOutcome() != AddressLinesFound) {
    return;  // the whole text was asked about: they have its lines
  }
  answer.MatchedAddresses.clear();
  for (AddressMatch& match : answer.Candidates) {
    match = WithinLabel(lines, match);
    answer.MatchedAddresses.append(std::make_shared<PostwrightSelector>(
        QString::fromStdWString(match.GetAddressPattern(true)),
        QString::fromStdWString(match.GetAddressTemplate(true)),
        QString::fromStdWString(match.GetSecondaryLow()),
        QString::fromStdWString(match.GetSecondaryHigh())));
  }
}

}  // namespace postwright
