#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_FIX_FIXPLAN_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_FIX_FIXPLAN_H_

#include <QList>
#include <QStringList>

#include "apps/addressbook/book/Book.h"
#include "apps/addressbook/fix/AddressFixer.h"

namespace postwright::addressbook {

// Which entries of a book are to be checked. Functions without a window.

// Of the entries at `rows`, those that are worth asking about: all that have an address, without
// those that were in order within half a year unless `includesRight`.
QList<int> rowsToFix(const Book& book, const QList<int>& rows, bool includesRight);

// The rows of all entries, and of those that failed.
QList<int> allRows(const Book& book);
QList<int> failedRows(const Book& book);

QStringList labelsAt(const Book& book, const QList<int>& rows);

// What outcomes, one for each of `rows`, do to a book. Where the service gave no answer, an entry
// that was in order before is left as it was; any other one has failed.
struct BookChanges {
  QList<PlacedEntry> labels;   // the entries with their new labels
  QList<PlacedEntry> checked;  // the entries with what is known of them from `today` on
  int corrected = 0;
  int right = 0;        // confirmed as they were
  int unconfirmed = 0;  // nothing to correct
  int formed = 0;       // of both: written in the chosen form from now on
  int failed = 0;
  int leftRight = 0;  // without an answer
};
BookChanges changesOf(const Book& book, const QList<int>& rows, const QList<FixOutcome>& outcomes,
                      QDate today);

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_FIX_FIXPLAN_H_
