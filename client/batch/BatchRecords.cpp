#include "client/batch/BatchRecords.h"

#include <algorithm>

namespace postwright {

using Values = BatchResultRecord::Values;

BatchRecords::BatchRecords(const QList<std::shared_ptr<AddressEntry>>& entries) {
  _records.reserve(entries.size());
  _places.reserve(entries.size());
  for (const std::shared_ptr<AddressEntry>& entry : entries) {
    const auto record = std::make_shared<BatchResultRecord>(entry);
    _places.insert(record.get(), _records.size());
    _records.append(record);
    _tally.update(*record);
  }
}

template <typename Condition>
BatchResultRecordList BatchRecords::those(Condition condition) const {
  BatchResultRecordList found;
  std::copy_if(_records.begin(), _records.end(), std::back_inserter(found),
               [&](const BatchResultRecordPointer& record) { return condition(*record); });
  return found;
}

BatchResultRecordList BatchRecords::fixed() const {
  return those([](const BatchResultRecord& record) {
    return record.values().status == AddressStatusFixed || record.isFormed();
  });
}

BatchResultRecordList BatchRecords::pending() const {
  return those([](const BatchResultRecord& record) { return record.values().pending; });
}

BatchResultRecordList BatchRecords::unanswered() const {
  return those([](const BatchResultRecord& record) {
    const Values values = record.values();
    return !values.pending && values.isUnanswered();
  });
}

BatchResultRecordList BatchRecords::twinsOf(const BatchResultRecord& record) const {
  const QString address = record.values().address;
  const AddressStatus status = record.values().status;
  return those([&](const BatchResultRecord& other) {
    const Values values = other.values();
    return &other != &record && !values.pending && values.status == status &&
           values.address == address;
  });
}

BatchResultRecordList BatchRecords::withProposalLike(const BatchResultRecord& record) const {
  const QString reason = record.values().remark;
  return those([&](const BatchResultRecord& other) {
    const Values values = other.values();
    return !values.pending && values.status == AddressStatusError && !values.proposal.isEmpty() &&
           values.remark == reason;
  });
}

BatchResultRecordList BatchRecords::settle(const BatchResultRecordList& records) {
  _records.removeIf([this](const BatchResultRecordPointer& record) {
    const bool leaves = record->values().ignored;
    if (leaves) {
      _tally.remove(*record);
    }
    return leaves;
  });
  BatchResultRecordList back;
  for (const BatchResultRecordPointer& record : records) {
    if (record->values().ignored) {
      continue;
    }
    if (!_tally.contains(*record)) {
      back.append(record);
    }
    _tally.update(*record);
  }
  if (!back.isEmpty()) {
    _records += back;
    sort(_records);
  }
  return back;
}

void BatchRecords::sort(BatchResultRecordList& records) const {
  std::sort(records.begin(), records.end(),
            [this](const BatchResultRecordPointer& one, const BatchResultRecordPointer& other) {
              return _places.value(one.get()) < _places.value(other.get());
            });
}

}  // namespace postwright
