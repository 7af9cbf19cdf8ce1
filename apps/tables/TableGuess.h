#ifndef POSTWRIGHT_APPS_TABLES_TABLEGUESS_H_
#define POSTWRIGHT_APPS_TABLES_TABLEGUESS_H_

#include <QByteArray>

#include "apps/tables/TableChoice.h"

namespace postwright::tables {

// Tells how a CSV text is to be read: by the delimiter that it names ("sep=;") or that parts its
// rows best, without the titles above its header, and by the columns that make its labels. A text
// whose first row holds a ZIP code and no name of a column has no header.
TableChoice guessTable(const QByteArray& utf8);

// The same with all but the columns as in `choice`.
TableChoice guessColumnsOf(const QByteArray& utf8, const TableChoice& choice);

// The same for the first rows of a table that is not text; these are enough of them.
inline constexpr int kGuessedRows = 200;
TableChoice guessTableOf(const QList<QStringList>& rows);
TableChoice guessColumnsOf(const QList<QStringList>& rows, const TableChoice& choice);

}  // namespace postwright::tables

#endif  // POSTWRIGHT_APPS_TABLES_TABLEGUESS_H_
