#include <postwright/BatchResultRecord.h>

#include <utility>

#include "client/LocalizedString.h"

namespace postwright {

void BatchResultRecord::Values::takeAnswer(const std::optional<AddressFix>& answer,
                                           const QString& message) {
  if (!answer) {
    result = message;
    fixed = QString();
    status = AddressStatusError;
  } else if (PostwrightClient::isAddress(address, answer->ExactAddress)) {
    fixed = address;
    status = AddressStatusUnchanged;
  } else if (answer->MatchedAddresses.size() >= 2) {
    fixed = QString();
    matches = answer->MatchedAddresses;
    status = AddressStatusMultiple;
  } else {
    fixed = answer->ExactAddress;
    status = AddressStatusFixed;
  }
}

BatchResultRecord::BatchResultRecord(std::shared_ptr<AddressEntry> entry)
    : _entry(std::move(entry)) {
  _values.address = _entry->value();
  _values.fixed = localizedString("SProcessing");
}

BatchResultRecord::BatchResultRecord(const QString& address) {
  _values.address = address;
  _values.fixed = localizedString("SProcessing");
}

BatchResultRecord::Values BatchResultRecord::values() const {
  const std::lock_guard guard(_lock);
  return _values;
}

void BatchResultRecord::setAddress(const QString& address) {
  const std::lock_guard guard(_lock);
  _values.address = address;
  ++_changes;
}

void BatchResultRecord::setFixed(const QString& fixed) {
  const std::lock_guard guard(_lock);
  _values.fixed = fixed;
  _values.status = AddressStatusFixed;
  ++_changes;
}

bool BatchResultRecord::fix(PostwrightClient& client) {
  std::unique_lock guard(_lock);
  const QString address = _values.address;
  const quint32 changes = _changes;
  guard.unlock();
  const std::optional<AddressFix> answer = client.fixAddress(address);
  const QString message = client.lastResult().value_or(QString());
  guard.lock();
  if (_changes != changes) {
    return false;
  }
  _values.takeAnswer(answer, message);
  ++_changes;
  return true;
}

}  // namespace postwright
