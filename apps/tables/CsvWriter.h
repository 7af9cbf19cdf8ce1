#ifndef POSTWRIGHT_APPS_TABLES_CSVWRITER_H_
#define POSTWRIGHT_APPS_TABLES_CSVWRITER_H_

#include <QByteArray>
#include <QList>
#include <QStringList>

namespace postwright::tables {

enum class CsvQuotes { WhereNeeded, Always };

// Returns `text` as a cell of a CSV file, in quotation marks where it holds the delimiter, a
// quotation mark, a line break or blanks at its ends.
QByteArray csvCell(const QString& text, char delimiter, CsvQuotes quotes = CsvQuotes::WhereNeeded);

// Returns a row, without a line break at its end.
QByteArray csvRow(const QStringList& cells, char delimiter);

// Returns `row`, the text of a single row, with `cells` in place of its own. Cells that are the
// same stay byte for byte as they are, as do the blank lines before the row and the line break
// after it; but where the row is broken and one changes, all are written again, so that a mark
// which nothing closed does not take the next cell with it.
QByteArray csvRowWith(const QByteArray& row, const QStringList& cells, char delimiter);

}  // namespace postwright::tables

#endif  // POSTWRIGHT_APPS_TABLES_CSVWRITER_H_
