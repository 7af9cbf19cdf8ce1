#ifndef POSTWRIGHT_APPS_TABLES_COLUMNGUESS_H_
#define POSTWRIGHT_APPS_TABLES_COLUMNGUESS_H_

#include <QList>
#include <QStringList>

#include "apps/tables/TableChoice.h"

namespace postwright::tables {

// Guesses which columns of a table make labels: by the names that contact programs, customer
// databases, spreadsheets of clubs and parishes give them, in English and Spanish, and by what the
// first rows hold. A table with several addresses a row (home and business, mailing and shipping)
// gives each of them, the one that is filled most first; those that no row fills are left out.
//
//   guessColumns({"Name", "Home Street", "Home City", "Work Street", "Work City"}, rows);
//
// `header` may be without names, or `rows` empty; there is always one address, perhaps without a
// column.
QList<AddressColumns> guessColumns(const QStringList& header, const QList<QStringList>& rows);

// Tells whether a row holds a state and right after it four or five digits: a ZIP code, which may
// have lost its zero in a spreadsheet.
bool hasStateAndZip(const QStringList& row);

}  // namespace postwright::tables

#endif  // POSTWRIGHT_APPS_TABLES_COLUMNGUESS_H_
