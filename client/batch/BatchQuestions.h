#ifndef POSTWRIGHT_CLIENT_BATCH_BATCHQUESTIONS_H_
#define POSTWRIGHT_CLIENT_BATCH_BATCHQUESTIONS_H_

#include <QList>
#include <QStringList>

#include "client/batch/review/BatchReview.h"
#include "client/batch/review/Differences.h"

class QWidget;

namespace postwright {

// The questions that the batch window asks where its options say so. Each blocks until it is
// answered; closing it, or Escape, changes nothing.

enum class Leaving { Apply, Discard, Stay };

// How a window with work in it is to be left.
Leaving askHowToLeave(QWidget& window, const ReviewCounts& counts);

// Whether `changes` are to be made in `texts`, too, of which the first are shown.
bool askSameForAll(QWidget& window, const QList<Change>& changes, const QStringList& texts);

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_BATCH_BATCHQUESTIONS_H_
