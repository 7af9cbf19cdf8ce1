#include "client/batch/worker/TwinOutcomes.h"

#include <QSet>

namespace postwright {
namespace {

AddressOutcome withOwnCandidates(AddressOutcome outcome) {
  if (outcome.answer) {
    for (PostwrightSelectorPointer& candidate : outcome.answer->MatchedAddresses) {
      candidate = std::make_shared<PostwrightSelector>(*candidate);
    }
  }
  return outcome;
}

}  // namespace

TwinOutcomes::TwinOutcomes(const BatchResultRecordList& records) {
  QSet<QString> seen;
  seen.reserve(records.size());
  for (const BatchResultRecordPointer& record : records) {
    const QString address = record->values().address;
    if (seen.contains(address)) {
      _outcomes.insert(address, std::nullopt);
    } else {
      seen.insert(address);
    }
  }
}

AddressOutcome TwinOutcomes::outcomeFor(const QString& address,
                                        const std::function<AddressOutcome(const QString&)>& ask) {
  const auto remembered = _outcomes.find(address);
  if (remembered == _outcomes.end()) {
    return ask(address);
  }
  if (!*remembered) {
    *remembered = ask(address);
  }
  return withOwnCandidates(**remembered);
}

void TwinOutcomes::forget(const QString& address) {
  const auto remembered = _outcomes.find(address);
  if (remembered != _outcomes.end()) {
    remembered->reset();
  }
}

}  // namespace postwright
