#ifndef POSTWRIGHT_APPS_TABLES_CSVREADER_H_
#define POSTWRIGHT_APPS_TABLES_CSVREADER_H_

#include <QByteArray>
#include <QByteArrayView>
#include <QCoreApplication>
#include <QList>
#include <QStringList>
#include <functional>

#include "apps/tables/TextRange.h"

namespace postwright::tables {

// A row of a CSV text. Blank lines before it belong to it, as does the line break at its end.
struct CsvRow {
  TextRange range;
  QStringList cells;
  QList<TextRange> ranges;  // of the cells, with quotation marks and blanks, without delimiters
  bool isBroken = false;    // a quotation mark in it is opened and not closed
};

// Reads CSV, quoted or not, and tells where in the text each row and cell stands, so that what is
// not changed can be written back byte for byte.
//
//   CsvReader(';').readRows(utf8, [](const CsvRow& row) { take(row.cells); return true; });
//
// Blanks around a cell are not part of it, unless they are inside its quotation marks. A quotation
// mark that nothing closes costs the row it stands in, not those after it: there the mark is left
// out and the row ends with its line. As unclosed counts one that is followed by the end of the
// text, by 1 MiB, or, on a later line, by a mark that neither is doubled nor ends a cell, as that
// which opens the next cell is. However many of them there are, reading is linear.
class CsvReader {
  Q_DECLARE_TR_FUNCTIONS(postwright::tables::CsvReader)

 public:
  // Delimiters that are looked for in a file. Any other ASCII character will do as well, except
  // letters, digits, the quotation mark and line breaks.
  static constexpr QByteArrayView kUsualDelimiters = ",;\t|:^~";
  static bool isDelimiter(char character);

  // Returns the one of the usual delimiters that divides the first rows of `utf8` most evenly; the
  // comma where none divides them at all.
  static char guessDelimiter(QByteArrayView utf8);

  explicit CsvReader(char delimiter) : _delimiter(delimiter) {}

  // Calls `take` with each row until it returns false. Throws FileError, naming the line, for a
  // cell of more than 1 MiB.
  void readRows(QByteArrayView utf8, const std::function<bool(const CsvRow&)>& take) const;

  // Returns the cells of the first row of `utf8`; none where there is no row.
  QStringList firstRow(QByteArrayView utf8) const;

  // The first row with all that is known of it; one without cells where there is none.
  CsvRow first(QByteArrayView utf8) const;

 private:
  char _delimiter;
};

}  // namespace postwright::tables

#endif  // POSTWRIGHT_APPS_TABLES_CSVREADER_H_
