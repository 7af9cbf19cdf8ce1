#ifndef POSTWRIGHT_CLIENT_BATCH_REVIEW_BATCHREVIEW_H_
#define POSTWRIGHT_CLIENT_BATCH_REVIEW_BATCHREVIEW_H_

#include <postwright/BatchResultRecord.h>

#include <QHash>
#include <array>

namespace postwright {

// The four segments of the filter, by AddressStatus: which are selected.
using StatusFilter = std::array<bool, 4>;

// Returns the records of `records` that pass `filter`, in their order. All four selected let every
// record pass, none selected none. A record that was not asked about counts as unchanged.
BatchResultRecordList filterRecords(const BatchResultRecordList& records,
                                    const StatusFilter& filter);

// How the records of a list stand. Each is counted in one of the first five.
struct ReviewCounts {
  qsizetype pending = 0;  // no outcome yet, or asked about anew
  qsizetype unchanged = 0;
  qsizetype fixed = 0;
  qsizetype multiple = 0;
  qsizetype errors = 0;
  qsizetype notAsked = 0;   // of the errors: the service failed, not the address
  qsizetype noNetwork = 0;  // of these: there was no network
  qsizetype blank = 0;      // of the fixed: the corrected text is empty

  qsizetype total() const { return pending + unchanged + fixed + multiple + errors; }
  // Of the segment of `status`.
  qsizetype ofStatus(AddressStatus status) const;
  bool operator==(const ReviewCounts&) const = default;
};

ReviewCounts countRecords(const BatchResultRecordList& records);

// The same counts, kept up to date at the same cost for each change, however long the list.
class ReviewTally {
 public:
  // Counts `record`, anew where it was counted before.
  void update(const BatchResultRecord& record);
  void remove(const BatchResultRecord& record);

  const ReviewCounts& counts() const { return _counts; }

 private:
  QHash<const BatchResultRecord*, quint8> _kinds;
  ReviewCounts _counts;
};

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_BATCH_REVIEW_BATCHREVIEW_H_
