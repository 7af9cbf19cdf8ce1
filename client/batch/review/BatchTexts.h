#ifndef POSTWRIGHT_CLIENT_BATCH_REVIEW_BATCHTEXTS_H_
#define POSTWRIGHT_CLIENT_BATCH_REVIEW_BATCHTEXTS_H_

#include <QString>
#include <chrono>
#include <optional>

#include "client/batch/review/BatchReview.h"

namespace postwright {

// The sentences of the batch window, each from what it is about. Pure but for the language.

// How a record stands, in a word: the one at the icon's side. Empty where nothing is known yet.
QString statusText(const BatchResultRecord::Values& values);

// What stands in place of a corrected text that is not there: the step that a record waits for.
QString hintText(const BatchResultRecord::Values& values);

// The caption of the filter's segment.
QString segmentText(AddressStatus status, qsizetype count);

// The caption of the button that applies: it says in numbers what it will do.
QString applyText(const ReviewCounts& counts);

// How a list stands whose worker has ended, in one or two sentences.
QString summaryText(const ReviewCounts& counts);

// "12 of 340", and the time left where it is known.
QString progressText(qsizetype done, qsizetype total,
                     const std::optional<std::chrono::seconds>& left);

// Guesses the time left from `done` of `total` records in `elapsed`; nil while too few are done to
// tell, and where so little is left that telling is no help.
std::optional<std::chrono::seconds> timeLeft(qsizetype done, qsizetype total,
                                             std::chrono::milliseconds elapsed);

// What to say above a list in which the service failed; empty where it did not.
QString bannerText(const ReviewCounts& counts);

// Why no row is shown.
QString emptyText(qsizetype total);

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_BATCH_REVIEW_BATCHTEXTS_H_
