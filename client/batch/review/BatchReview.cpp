#include "client/batch/review/BatchReview.h"

#include <postwright/FixResult.h>

#include <algorithm>

namespace postwright {
namespace {

// What a record is counted as. A failure that is not the address's counts as an error too, and a
// blank correction as a correction.
enum Kind : quint8 { Pending, Unchanged, Fixed, Blank, Multiple, Error, NotAsked, NoNetwork };

Kind kindOf(const BatchResultRecord::Values& values) {
  if (values.pending) {
    return Pending;
  }
  switch (values.status) {
    case AddressStatusUnchanged:
      return Unchanged;
    case AddressStatusFixed:
      return values.fixed.isEmpty() ? Blank : Fixed;
    case AddressStatusMultiple:
      return Multiple;
    case AddressStatusError:
      break;
  }
  if (values.result == PostwrightClient::stringForResult(FixResultNoInternet)) {
    return NoNetwork;
  }
  return values.isUnanswered() ? NotAsked : Error;
}

void count(Kind kind, qsizetype by, ReviewCounts& counts) {
  counts.pending += kind == Pending ? by : 0;
  counts.unchanged += kind == Unchanged ? by : 0;
  counts.fixed += kind == Fixed || kind == Blank ? by : 0;
  counts.blank += kind == Blank ? by : 0;
  counts.multiple += kind == Multiple ? by : 0;
  counts.errors += kind >= Error ? by : 0;
  counts.notAsked += kind >= NotAsked ? by : 0;
  counts.noNetwork += kind == NoNetwork ? by : 0;
}

}  // namespace

BatchResultRecordList filterRecords(const BatchResultRecordList& records,
                                    const StatusFilter& filter) {
  if (std::all_of(filter.begin(), filter.end(), [](bool selected) { return selected; })) {
    return records;
  }
  BatchResultRecordList passed;
  for (const BatchResultRecordPointer& record : records) {
    const auto status = static_cast<std::size_t>(record->values().status);
    if (status < filter.size() && filter[status]) {
      passed.append(record);
    }
  }
  return passed;
}

qsizetype ReviewCounts::ofStatus(AddressStatus status) const {
  switch (status) {
    case AddressStatusUnchanged:
      return unchanged;
    case AddressStatusFixed:
      return fixed;
    case AddressStatusMultiple:
      return multiple;
    case AddressStatusError:
      return errors;
  }
  return 0;
}

ReviewCounts countRecords(const BatchResultRecordList& records) {
  ReviewCounts counts;
  for (const BatchResultRecordPointer& record : records) {
    count(kindOf(record->values()), 1, counts);
  }
  return counts;
}

void ReviewTally::update(const BatchResultRecord& record) {
  const Kind kind = kindOf(record.values());
  remove(record);
  _kinds.insert(&record, kind);
  count(kind, 1, _counts);
}

void ReviewTally::remove(const BatchResultRecord& record) {
  const auto known = _kinds.constFind(&record);
  if (known != _kinds.constEnd()) {
    count(static_cast<Kind>(*known), -1, _counts);
    _kinds.erase(known);
  }
}

}  // namespace postwright
