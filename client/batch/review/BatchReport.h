#ifndef POSTWRIGHT_CLIENT_BATCH_REVIEW_BATCHREPORT_H_
#define POSTWRIGHT_CLIENT_BATCH_REVIEW_BATCHREPORT_H_

#include <QList>
#include <QString>

#include "client/batch/review/BatchReview.h"

namespace postwright {

// What became of a list, to be kept: as a table and as a page. Functions without a window.

// A line of the summary: how many addresses stand so.
struct SummaryLine {
  QString text;
  qsizetype count = 0;
  bool part = false;  // of the line before that is none
};

// How a list stands: right, well written, left as typed, corrected (by rule), doubtful, to be
// chosen, refused
// (by reason) and not asked about; and how far those with an answer are confirmed. What there is
// none of is left out.
QList<SummaryLine> summaryLines(const BatchResultRecordList& records);

// The texts of `records`, corrected where there is a corrected text, separated by blank lines.
QString labelsOf(const BatchResultRecordList& records);

// A table of `records` (RFC 4180, CRLF, with a head): typed text, corrected text, status,
// confirmation, reason. A
// text that a spreadsheet would take for a formula has an apostrophe before it.
QString csvReport(const BatchResultRecordList& records);

// A page, HTML that needs no other file: the summary and the table.
QString htmlReport(const BatchResultRecordList& records);

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_BATCH_REVIEW_BATCHREPORT_H_
