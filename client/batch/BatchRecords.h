#ifndef POSTWRIGHT_CLIENT_BATCH_BATCHRECORDS_H_
#define POSTWRIGHT_CLIENT_BATCH_BATCHRECORDS_H_

#include <postwright/BatchResultRecord.h>

#include <QHash>

#include "client/batch/review/BatchReview.h"

namespace postwright {

// The records of a batch window: those that are still in it, in the host's order, and how many of
// them stand how. The worker has lists of its own, so that a record can leave while it runs.
class BatchRecords {
 public:
  explicit BatchRecords(const QList<std::shared_ptr<AddressEntry>>& entries);

  const BatchResultRecordList& all() const { return _records; }
  const ReviewCounts& counts() const { return _tally.counts(); }
  const QMap<QString, qsizetype>& reasons() const { return _tally.reasons(); }
  QString whyUnanswered() const { return _tally.whyUnanswered(); }

  BatchResultRecordList fixed() const;
  BatchResultRecordList pending() const;
  BatchResultRecordList unanswered() const;

  // The other records of the same text that have an outcome of the same status.
  BatchResultRecordList twinsOf(const BatchResultRecord& record) const;

  // Those turned down for the same reason as `record` whose fault can be mended, `record` included.
  BatchResultRecordList withProposalLike(const BatchResultRecord& record) const;

  // Counts a changed record again.
  void update(const BatchResultRecord& record) { _tally.update(record); }

  // Leaves those out that are ignored by now, and takes those of `records` in again, each in its
  // place, that are not ignored any more; returns these.
  BatchResultRecordList settle(const BatchResultRecordList& records);

  // Sorts `records` as the host has them.
  void sort(BatchResultRecordList& records) const;

 private:
  template <typename Condition>
  BatchResultRecordList those(Condition condition) const;

  BatchResultRecordList _records;
  QHash<const BatchResultRecord*, qsizetype> _places;  // in the host's order
  ReviewTally _tally;
};

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_BATCH_BATCHRECORDS_H_
