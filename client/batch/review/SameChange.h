#ifndef POSTWRIGHT_CLIENT_BATCH_REVIEW_SAMECHANGE_H_
#define POSTWRIGHT_CLIENT_BATCH_REVIEW_SAMECHANGE_H_

#include <postwright/BatchResultRecord.h>

#include "client/batch/review/Differences.h"

namespace postwright {

// A change of words that a person made in one text, to be made in others too.

// The words that became others when `before` became `after`: those that hold a letter, such as a
// city or a street. A house number belongs to one address only.
QList<Change> wordChanges(const QString& before, const QString& after);

// Returns `text` with each change made wherever its words stand in it, whatever their case; `text`
// itself where none does.
QString withChanges(const QString& text, const QList<Change>& changes);

// Of `records`, those in which the words of `changes` stand and that neither the service nor a
// person has settled: it confirmed them or wrote the words otherwise, or they are the person's own.
// Without `except`.
BatchResultRecordList recordsToChange(const BatchResultRecordList& records,
                                      const QList<Change>& changes,
                                      const BatchResultRecord& except);

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_BATCH_REVIEW_SAMECHANGE_H_
