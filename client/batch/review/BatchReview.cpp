#include "client/batch/review/BatchReview.h"

#include <postwright/FixResult.h>

#include <QStringList>
#include <algorithm>
#include <utility>
#include <vector>

namespace postwright {
namespace {

// What a record is counted as. A failure that is not the address's counts as an error too, a blank
// correction as a correction, and a text that was kept as unchanged.
enum Kind : quint8 {
  Pending,
  Right,
  Unconfirmed,
  Kept,
  Fixed,
  Blank,
  Multiple,
  Doubtful,
  Error,
  NotAsked,
  NoNetwork
};

Kind kindOf(const BatchResultRecord::Values& values) {
  if (values.pending) {
    return Pending;
  }
  switch (values.status) {
    case AddressStatusUnchanged:
      return values.isFoundRight() ? Right : values.isWellWritten() ? Unconfirmed : Kept;
    case AddressStatusFixed:
      return values.fixed.isEmpty() ? Blank : Fixed;
    case AddressStatusMultiple:
      return values.isDoubtful() ? Doubtful : Multiple;
    case AddressStatusError:
      break;
  }
  if (values.result == PostwrightClient::stringForResult(FixResultNoInternet)) {
    return NoNetwork;
  }
  return values.isUnanswered() ? NotAsked : Error;
}

void count(Kind kind, bool formed, qsizetype by, ReviewCounts& counts) {
  counts.pending += kind == Pending ? by : 0;
  counts.unchanged += kind >= Right && kind <= Kept ? by : 0;
  counts.unconfirmed += kind == Unconfirmed ? by : 0;
  counts.formed += formed ? by : 0;
  counts.kept += kind == Kept ? by : 0;
  counts.fixed += kind == Fixed || kind == Blank ? by : 0;
  counts.blank += kind == Blank ? by : 0;
  counts.multiple += kind == Multiple || kind == Doubtful ? by : 0;
  counts.doubtful += kind == Doubtful ? by : 0;
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

namespace {

bool holdsWords(const BatchResultRecord::Values& values, const QStringList& words) {
  return std::all_of(words.begin(), words.end(), [&values](const QString& word) {
    return values.address.contains(word, Qt::CaseInsensitive) ||
           values.fixed.contains(word, Qt::CaseInsensitive);
  });
}

// What records are sorted by, worked out once for each: the texts folded, the statuses with those
// that need a person first and those that have no outcome last.
std::pair<int, QString> sortKey(const BatchResultRecord::Values& values, RecordQuery::Order order) {
  switch (order) {
    case RecordQuery::Order::Address:
      return {0, values.address.toCaseFolded()};
    case RecordQuery::Order::Fixed:
      return {values.fixed.isEmpty() ? 1 : 0, values.fixed.toCaseFolded()};
    case RecordQuery::Order::Status:
      return {values.pending ? 1 : -values.status, values.failure()};
    case RecordQuery::Order::Host:
      break;
  }
  return {};
}

void sortRecords(BatchResultRecordList& records, const RecordQuery& query) {
  std::vector<std::pair<std::pair<int, QString>, BatchResultRecordPointer>> keyed;
  keyed.reserve(static_cast<std::size_t>(records.size()));
  for (const BatchResultRecordPointer& record : records) {
    keyed.emplace_back(sortKey(record->values(), query.order), record);
  }
  std::stable_sort(keyed.begin(), keyed.end(), [&query](const auto& one, const auto& other) {
    return query.descending ? other.first < one.first : one.first < other.first;
  });
  std::transform(keyed.begin(), keyed.end(), records.begin(),
                 [](const auto& one) { return one.second; });
}

}  // namespace

BatchResultRecordList findRecords(const BatchResultRecordList& records, const RecordQuery& query) {
  BatchResultRecordList found = filterRecords(records, query.statuses);
  const QStringList words = query.search.split(u' ', Qt::SkipEmptyParts);
  if (!words.isEmpty() || !query.reason.isEmpty() || query.doubtful) {
    found.removeIf([&](const BatchResultRecordPointer& record) {
      const BatchResultRecord::Values values = record->values();
      const bool ofReason =
          query.reason.isEmpty() || (!values.pending && values.status == AddressStatusError &&
                                     values.failure() == query.reason);
      const bool isLeftOut = query.doubtful && (values.pending || !values.isDoubtful());
      return isLeftOut || !ofReason || !holdsWords(values, words);
    });
  }
  if (query.order != RecordQuery::Order::Host) {
    sortRecords(found, query);
  }
  return found;
}

bool needsPerson(const BatchResultRecord::Values& values) {
  return !values.pending && values.status >= AddressStatusMultiple;
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
    count(kindOf(record->values()), record->isFormed(), 1, counts);
  }
  return counts;
}

void ReviewTally::update(const BatchResultRecord& record) {
  const BatchResultRecord::Values values = record.values();
  const Kind kind = kindOf(values);
  const bool formed = record.isFormed();
  remove(record);
  const QString reason = kind >= Error ? values.failure() : QString();
  const QString outage = kind >= NotAsked ? values.remark : QString();
  _counted.insert(&record, {kind, formed, reason, outage});
  count(kind, formed, 1, _counts);
  if (kind >= Error) {
    ++_reasons[reason];
  }
  if (kind >= NotAsked) {
    ++_outages[outage];
  }
}

void ReviewTally::remove(const BatchResultRecord& record) {
  const auto known = _counted.constFind(&record);
  if (known == _counted.constEnd()) {
    return;
  }
  const auto [kind, formed, reason, outage] = *known;
  _counted.erase(known);
  count(static_cast<Kind>(kind), formed, -1, _counts);
  if (kind >= Error && --_reasons[reason] == 0) {
    _reasons.remove(reason);
  }
  if (kind >= NotAsked && --_outages[outage] == 0) {
    _outages.remove(outage);
  }
}

}  // namespace postwright
