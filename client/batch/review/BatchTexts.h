#ifndef POSTWRIGHT_CLIENT_BATCH_REVIEW_BATCHTEXTS_H_
#define POSTWRIGHT_CLIENT_BATCH_REVIEW_BATCHTEXTS_H_

#include <QString>
#include <chrono>
#include <optional>

#include "client/batch/review/BatchReview.h"
#include "client/batch/review/Differences.h"

namespace postwright {

// The sentences of the batch window, each from what it is about. Pure but for the language.

// How a record stands, in a word: the one at the icon's side. Empty where nothing is known yet.
QString statusText(const BatchResultRecord::Values& values);

// What is shown in place of a corrected text that is missing: the step that a record waits for.
QString hintText(const BatchResultRecord::Values& values);

// Why a record has its status, where that and its texts do not tell; else empty.
QString whyText(const BatchResultRecord::Values& values);

// What a screen reader says of how a record stands: its status, and how far the service knows the
// address.
QString spokenStatus(const BatchResultRecord::Values& values);

// How far the service knows an address that it would not write differently or corrected; empty for
// any other.
QString confirmationText(const BatchResultRecord::Values& values);

// What the service said of an address that it would not write differently: that it is right where
// it was confirmed, else that there was nothing to correct, and how far it is known.
QString foundText(const BatchResultRecord::Values& values);

// What an address lacks to be confirmed, in a sentence; empty for one that is, and where nobody was
// asked.
QString unconfirmedText(const Confirmation& confirmation);

// What became of words: "X changed to Y", or added, or removed.
QString changeText(const Change& change);

// The words that moved into another line, a sentence for each.
QStringList moveTexts(const Differences& differences);

// What changed, a sentence for each change, words that moved first.
QStringList changeTexts(const Differences& differences);

// What a screen reader says of a corrected text: the text, and what became of each word.
QString spokenText(const QString& fixed, const QStringList& changes);

// What a tool tip says of a record: how it stands, why, and what changed.
QString toolTipText(const BatchResultRecord::Values& values, const QStringList& changes);

// The first of many changes as lines, and how many more there are.
QStringList firstChanges(const QStringList& changes, qsizetype most);

// The caption of the filter's segment.
QString segmentText(AddressStatus status, qsizetype count);

// The caption of the button that lists the doubtful ones alone.
QString doubtfulText(qsizetype count);

// An entry of the list of reasons: the message of errors and how many there are.
QString reasonText(const QString& reason, qsizetype count);

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

// What to say above a list in which the service failed; empty where it did not. `why`: the one
// reason, and what to do, where it is known. `gaveUp`: the run ended because the service did not
// answer any more for this long.
QString bannerText(const ReviewCounts& counts, const QString& why,
                   std::optional<std::chrono::milliseconds> gaveUp = std::nullopt);

// That the service is being waited for, and for how long now.
QString waitingText(std::chrono::seconds waited);

// That a run was stopped, and how far it has come.
QString stoppedText(const ReviewCounts& counts);

// What can be done with several selected records: how many they are, and how they stand.
QString severalText(const ReviewCounts& counts);

// Why no row is shown.
QString emptyText(qsizetype total);

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_BATCH_REVIEW_BATCHTEXTS_H_
