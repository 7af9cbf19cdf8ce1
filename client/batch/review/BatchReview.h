#ifndef POSTWRIGHT_CLIENT_BATCH_REVIEW_BATCHREVIEW_H_
#define POSTWRIGHT_CLIENT_BATCH_REVIEW_BATCHREVIEW_H_

#include <postwright/BatchResultRecord.h>

#include <QHash>
#include <QMap>
#include <array>

namespace postwright {

// The four segments of the filter, by AddressStatus: which are selected.
using StatusFilter = std::array<bool, 4>;

// Returns the records of `records` that pass `filter`, in their order. All four selected let every
// record pass, none selected none. A record that was not asked about counts as unchanged.
BatchResultRecordList filterRecords(const BatchResultRecordList& records,
                                    const StatusFilter& filter);

// What the list shows of the records, besides the filter of statuses, and in which order.
struct RecordQuery {
  enum class Order { Host, Address, Fixed, Status };

  StatusFilter statuses{true, true, true, true};
  bool doubtful = false;  // those that are doubtful alone
  QString reason;         // of the errors, those with this failure() alone; empty: all records
  QString search;  // words that stand in the typed or the corrected text, whatever their case
  Order order = Order::Host;
  bool descending = false;
};

// Returns the records of `records`, which are in the host's order, that pass `query`. Records that
// are equal by its order stay in the host's.
BatchResultRecordList findRecords(const BatchResultRecordList& records, const RecordQuery& query);

// True for a record that a person has to look at: an error or a choice.
bool needsPerson(const BatchResultRecord::Values& values);

// How the records of a list stand. Each is counted in one of the first five.
struct ReviewCounts {
  qsizetype pending = 0;  // no outcome yet, or asked about again
  qsizetype unchanged = 0;
  qsizetype fixed = 0;
  qsizetype multiple = 0;
  qsizetype errors = 0;
  qsizetype notAsked = 0;   // of the errors: the service failed, not the address
  qsizetype noNetwork = 0;  // of these: there was no network
  qsizetype blank = 0;      // of the fixed: the corrected text is empty
  qsizetype kept = 0;       // of the unchanged: left as typed without the service's word
  qsizetype doubtful = 0;   // of the multiple
  // Of the unchanged: well written as far as the service can tell, and not confirmed.
  qsizetype unconfirmed = 0;
  qsizetype formed = 0;  // of the unchanged: given in another form than they were typed in

  qsizetype total() const { return pending + unchanged + fixed + multiple + errors; }
  // Of the unchanged: confirmed as they were typed.
  qsizetype right() const { return unchanged - kept - unconfirmed; }
  // Entries that are written back.
  qsizetype toApply() const { return fixed + formed; }
  // Of the segment of `status`.
  qsizetype ofStatus(AddressStatus status) const;
  bool operator==(const ReviewCounts&) const = default;
};

ReviewCounts countRecords(const BatchResultRecordList& records);

// The same counts, kept up to date at the same cost for each change, however long the list.
class ReviewTally {
 public:
  // Counts `record`, again where it was counted before.
  void update(const BatchResultRecord& record);
  void remove(const BatchResultRecord& record);
  bool contains(const BatchResultRecord& record) const { return _counted.contains(&record); }

  const ReviewCounts& counts() const { return _counts; }
  // The errors, by their reasons.
  const QMap<QString, qsizetype>& reasons() const { return _reasons; }
  // The remark that all have for which the service failed; empty where there are several, or none.
  QString whyUnanswered() const { return _outages.size() == 1 ? _outages.firstKey() : QString(); }

 private:
  struct Counted {
    quint8 kind;
    bool formed;
    QString reason;
    QString outage;  // the remark of one for which the service failed
  };
  QHash<const BatchResultRecord*, Counted> _counted;
  ReviewCounts _counts;
  QMap<QString, qsizetype> _reasons;
  QMap<QString, qsizetype> _outages;
};

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_BATCH_REVIEW_BATCHREVIEW_H_
