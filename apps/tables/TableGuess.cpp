#include "apps/tables/TableGuess.h"

#include <QRegularExpression>
#include <algorithm>

#include "apps/tables/ColumnGuess.h"
#include "apps/tables/ColumnNames.h"
#include "apps/tables/CsvReader.h"
#include "apps/tables/LabelText.h"

namespace postwright::tables {

namespace {

constexpr int kMostRowsAbove = 10;
constexpr int kLeastNames = 2;  // that make a row a header

// A line such as "sep=;", which spreadsheet programs write, names the delimiter.
char delimiterOf(const QByteArray& text) {
  static const QByteArray mark = "sep=";
  const bool isNamed = text.size() > mark.size() && text.first(mark.size()).toLower() == mark &&
                       CsvReader::isDelimiter(text[mark.size()]);
  return isNamed ? text[mark.size()] : CsvReader::guessDelimiter(text);
}

// How many rows are above the one that names the columns: titles and "sep=;". None where no row
// near the beginning names columns.
int rowsAbove(const QList<QStringList>& rows) {
  for (int row = 0; row < std::min<int>(static_cast<int>(rows.size()), kMostRowsAbove); ++row) {
    if (knownNames(rows[row]) >= kLeastNames) {
      return row;
    }
  }
  const bool isMark = rows.value(0).join(QString()).startsWith(u"sep=", Qt::CaseInsensitive);
  return isMark ? 1 : 0;
}

// A row that holds a ZIP code or the place of a label is an entry, unless it names columns.
bool looksLikeHeader(const QStringList& row) {
  static const QRegularExpression number(QStringLiteral(R"(^\s*\d{5}(-\d{4})?\s*$)"));
  const bool isEntry =
      hasStateAndZip(row) || std::any_of(row.begin(), row.end(), [](const QString& cell) {
        return number.match(cell).hasMatch() || readPlace(cell).has_value();
      });
  return knownNames(row) > 0 || !isEntry;
}

QList<QStringList> firstRows(const QByteArray& utf8, char delimiter) {
  QList<QStringList> rows;
  CsvReader(delimiter).readRows(utf8, [&rows](const CsvRow& row) {
    rows.append(row.cells);
    return rows.size() < kGuessedRows;
  });
  return rows;
}

TableChoice withColumns(TableChoice choice, QList<QStringList> rows) {
  rows = rows.mid(choice.skippedRows, kGuessedRows);
  QStringList header(rows.value(0).size(), QString());
  if (choice.hasHeader) {
    header = rows.value(0);
    choice.isNamed = knownNames(header) >= kLeastNames;
    rows = rows.mid(1);
  }
  choice.addresses = guessColumns(header, rows);
  return choice;
}

}  // namespace

TableChoice guessTable(const QByteArray& utf8) {
  const char delimiter = delimiterOf(utf8);
  const QList<QStringList> rows = firstRows(utf8, delimiter);
  TableChoice choice = guessTableOf(rows);
  choice.delimiter = delimiter;
  return choice;
}

TableChoice guessTableOf(const QList<QStringList>& rows) {
  const int above = rowsAbove(rows);
  return withColumns({',', looksLikeHeader(rows.value(above)), above, {}}, rows);
}

TableChoice guessColumnsOf(const QByteArray& utf8, const TableChoice& choice) {
  return withColumns(choice, firstRows(utf8, choice.delimiter));
}

TableChoice guessColumnsOf(const QList<QStringList>& rows, const TableChoice& choice) {
  return withColumns(choice, rows);
}

}  // namespace postwright::tables
