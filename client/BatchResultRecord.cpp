#include <postwright/BatchResultRecord.h>
#include <postwright/FixResult.h>

#include <algorithm>
#include <utility>

#include "client/LocalizedString.h"

namespace postwright {

void BatchResultRecord::Values::takeAnswer(const std::optional<AddressFix>& answer,
                                           const QString& message) {
  pending = false;
  own = false;
  standard = answer ? answer->ExactAddress : QString();
  const bool isSame = answer && PostwrightClient::isAddress(address, answer->ExactAddress);
  if (!answer) {
    result = message;
    fixed = QString();
    status = AddressStatusError;
  } else if (!answer->Candidates.isEmpty() || (!isSame && answer->MatchedAddresses.size() >= 2)) {
    takeChoice(*answer);
  } else if (isSame) {
    fixed = address;
    status = AddressStatusUnchanged;
  } else {
    fixed = answer->ExactAddress;
    status = AddressStatusFixed;
  }
}

void BatchResultRecord::Values::takeChoice(const AddressFix& answer) {
  fixed = QString();
  matches = answer.MatchedAddresses;
  candidates = answer.Candidates;
  status = AddressStatusMultiple;
}

QString BatchResultRecord::Values::corrected() const {
  return pending || own                 ? QString()
         : status == AddressStatusFixed ? fixed
         : isDoubtful()                 ? standard
                                        : QString();
}

CorrectionReview BatchResultRecord::Values::review() const {
  const QString text = corrected();
  return footnotes && !text.isEmpty()
             ? CorrectionReview(address.toStdWString(), text.toStdWString(), *footnotes)
             : CorrectionReview();
}

void BatchResultRecord::Values::takeRules() {
  rules.clear();
  const CorrectionReview changes = review();
  for (const CorrectionChange& change : changes.Changes()) {
    if (!rules.contains(change.rule)) {
      rules.append(change.rule);
    }
  }
}

void BatchResultRecord::Values::takeForm() {
  if (isWellWritten() && !standard.isEmpty() &&
      !CorrectionReview(address.toStdWString(), standard.toStdWString(), {}).Doubtful()) {
    fixed = standard;
  }
}

bool BatchResultRecord::Values::isFoundRight() const {
  return isWellWritten() && confirmation.Kind() == ConfirmationFull;
}

bool BatchResultRecord::Values::isWellWritten() const {
  return !pending && status == AddressStatusUnchanged && !own && remark.isEmpty();
}

bool BatchResultRecord::Values::isDoubtful() const {
  return status == AddressStatusMultiple && !remark.isEmpty() && candidates.isEmpty();
}

bool BatchResultRecord::Values::isUnanswered() const {
  return status == AddressStatusError && AddressOutcome{std::nullopt, result}.isUnanswered();
}

bool AddressOutcome::isUnanswered() const {
  constexpr FixResult kFailures[] = {FixResultConnectionFailed, FixResultNoData, FixResultBadReply,
                                     FixResultNoInternet};
  return !answer &&
         std::any_of(std::begin(kFailures), std::end(kFailures), [this](FixResult failure) {
           return message == PostwrightClient::stringForResult(failure);
         });
}

BatchResultRecord::BatchResultRecord(std::shared_ptr<AddressEntry> entry)
    : _entry(std::move(entry)), _typed(_entry->value()) {
  _values.address = _typed;
  _values.fixed = localizedString("SProcessing");
}

BatchResultRecord::BatchResultRecord(const QString& address) : _typed(address) {
  _values.address = address;
  _values.fixed = localizedString("SProcessing");
}

BatchResultRecord::Values BatchResultRecord::values() const {
  const std::lock_guard guard(_lock);
  return _values;
}

bool BatchResultRecord::isFormed() const {
  const std::lock_guard guard(_lock);
  return _values.isWellWritten() && _values.address == _typed && _values.fixed != _typed;
}

void BatchResultRecord::setAddress(const QString& address) {
  const std::lock_guard guard(_lock);
  _values.address = address;
  _values.mended = false;
  _values.pending = true;
  ++_changes;
}

void BatchResultRecord::setFixed(const QString& fixed) {
  const std::lock_guard guard(_lock);
  _values.fixed = fixed;
  _values.status = AddressStatusFixed;
  _values.pending = false;
  _values.own = false;
  ++_changes;
}

void BatchResultRecord::restart() {
  const std::lock_guard guard(_lock);
  _values.fixed = localizedString("SProcessing");
  _values.status = AddressStatusUnchanged;
  _values.pending = true;
  ++_changes;
}

void BatchResultRecord::ignore() {
  const std::lock_guard guard(_lock);
  _values.ignored = true;
  ++_changes;
}

BatchResultRecord::Values BatchResultRecord::exchange(Values values) {
  const std::lock_guard guard(_lock);
  ++_changes;
  return std::exchange(_values, std::move(values));
}

bool BatchResultRecord::fix(PostwrightClient& client) {
  return fix([&client](const QString& address) -> std::optional<AddressOutcome> {
    std::optional<AddressFix> answer = client.fixAddress(address);
    return AddressOutcome{.answer = std::move(answer),
                          .message = client.lastResult().value_or(QString()),
                          .confirmation = Confirmation(client.lastReport()),
                          .footnotes = client.lastReport().Footnotes()};
  });
}

bool BatchResultRecord::fix(
    const std::function<std::optional<AddressOutcome>(const QString&)>& ask) {
  std::unique_lock guard(_lock);
  const QString address = _values.address;
  const quint32 changes = _changes;
  guard.unlock();
  const std::optional<AddressOutcome> outcome = ask(address);
  guard.lock();
  if (!outcome || _changes != changes) {
    return false;
  }
  _values.takeAnswer(outcome->answer, outcome->message);
  _values.remark = outcome->remark;
  _values.proposal = outcome->proposal;
  _values.confirmation = outcome->confirmation;
  _values.footnotes = outcome->footnotes;
  if (outcome->answer && outcome->isOpen) {
    _values.takeChoice(*outcome->answer);
  }
  _values.takeRules();
  if (outcome->givesForm || _values.mended) {
    _values.takeForm();
  }
  if (_values.mended && _values.isWellWritten()) {
    _values.status = AddressStatusFixed;
  }
  ++_changes;
  return true;
}

}  // namespace postwright
