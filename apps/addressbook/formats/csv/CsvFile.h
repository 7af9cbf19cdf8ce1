#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_CSV_CSVFILE_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_CSV_CSVFILE_H_

#include <QCoreApplication>
#include <QStringList>

#include "apps/addressbook/book/BookFile.h"
#include "apps/addressbook/book/ColumnedFile.h"
#include "apps/addressbook/formats/rows/RowEntries.h"
#include "apps/tables/CsvReader.h"
#include "apps/tables/TextFile.h"

namespace postwright::addressbook {

// An address book in a CSV file: a row an entry, or one for each of its addresses.
//
//   CsvFile file(TextFile::read(path));
//   if (file.needsChoice()) file.choose(askUser(file));
//   QList<Entry> entries = file.entries();
//
// Rows whose label is unchanged, and in changed rows the cells that are, are written byte for byte
// as they were, as are delimiter, line breaks and encoding.
class CsvFile final : public BookFile, public ColumnedFile {
  Q_DECLARE_TR_FUNCTIONS(postwright::addressbook::CsvFile)

 public:
  static const BookFormat& bookFormat();

  // A new file with columns for name, company, two address lines, city, state and ZIP code.
  explicit CsvFile(char delimiter = ',');

  // Reads a file, as the user chose for its header earlier or as it looks. Throws FileError.
  explicit CsvFile(tables::TextFile text);

  const BookFormat& format() const override { return bookFormat(); }
  ColumnedFile* columns() override { return this; }
  QList<Entry> entries() const override { return _entries.entries(); }
  QStringList write(const QString& path, const QList<Entry>& entries) override;
  QStringList notes() const override;

  QStringList header() const override;
  int rowCount() const override { return static_cast<int>(_rows.size()); }
  QStringList cells(int row) const override;
  QList<tables::TextEncoding> encodings() const override;
  bool needsChoice() const override;
  const tables::TableChoice& choice() const override { return _choice; }
  tables::TableChoice guess(const tables::TableChoice& choice) const override;
  void choose(const tables::TableChoice& choice) override;
  void rememberChoice() const override;
  QStringList writeForSpreadsheet(const QString& path, const QList<Entry>& entries) const override;

 private:
  CsvFile(tables::TextFile text, const tables::TableChoice& choice, QByteArray lineBreak);
  QByteArray headerText() const;
  tables::TextFile textIn(tables::TextEncoding encoding) const;
  void takeHeader();
  void endLine(QByteArray& text) const;
  QByteArray compose(const QList<Entry>& entries, QStringList& notes) const;

  tables::TextFile _text;
  tables::TextEncoding _guessed = tables::TextEncoding::Utf8;
  tables::TableChoice _choice;
  QByteArray _key;     // for ColumnMemory: the header that was guessed,
  int _rowsAbove = 0;  // and how many rows are above it
  QStringList _header;
  tables::TextRange _headerRange;  // with all that is above it; empty without one
  QList<tables::TextRange> _rows;
  RowEntries _entries;
  int _brokenRows = 0;             // those with a quotation mark that nothing closes,
  qsizetype _firstBrokenLine = 0;  // and where the first one begins
  QByteArray _lineBreak = "\r\n";
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_CSV_CSVFILE_H_
