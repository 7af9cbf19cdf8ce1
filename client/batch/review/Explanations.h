#ifndef POSTWRIGHT_CLIENT_BATCH_REVIEW_EXPLANATIONS_H_
#define POSTWRIGHT_CLIENT_BATCH_REVIEW_EXPLANATIONS_H_

#include <postwright/BatchResultRecord.h>

#include "client/batch/review/Differences.h"

namespace postwright {

// A change that a correction makes, with why it does.
struct ExplainedChange {
  TextMark typed;      // its words in the text as typed; empty where words were added
  TextMark corrected;  // and in the text as corrected; empty where words were left out
  CorrectionRule rule;
  QString text;  // "Street changed to St: suffix in standard form", or a doubt in a sentence
};

// The changes of a correction of the service's, made or doubtful, in order; none where nobody knows
// the reply's footnotes, and where a line is too long to be shown whole.
QList<ExplainedChange> explainedChanges(const BatchResultRecord::Values& values);

// What changed, a sentence for each change, words that moved into another line first: with its rule
// as far as that is known.
QStringList changeTexts(const BatchResultRecord::Values& values, const Differences& differences);

// How many of `records` were corrected by each rule, by the rule's words.
QMap<QString, qsizetype> countRules(const BatchResultRecordList& records);

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_BATCH_REVIEW_EXPLANATIONS_H_
