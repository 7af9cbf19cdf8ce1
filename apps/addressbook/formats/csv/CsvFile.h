#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_CSV_CSVFILE_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_CSV_CSVFILE_H_

#include <QCoreApplication>
#include <QStringList>

#include "apps/addressbook/book/BookFile.h"
#include "apps/addressbook/formats/csv/ColumnMemory.h"
#include "apps/tables/CsvReader.h"
#include "apps/tables/TextFile.h"

namespace postwright::addressbook {

// An address book in a CSV file with a header: a row an entry.
//
//   CsvFile file(TextFile::read(path));
//   if (!ColumnMemory::find(file.firstLine())) file.choose(askUser(file));
//   QList<Entry> entries = file.entries();
//
// Rows whose label is unchanged, and in changed rows the cells that are, are written byte for byte
// as they were, as are delimiter, line breaks and encoding.
class CsvFile final : public BookFile {
  Q_DECLARE_TR_FUNCTIONS(postwright::addressbook::CsvFile)

 public:
  // A new file with columns for name, company, two address lines, city, state and ZIP code.
  explicit CsvFile(char delimiter = ',');

  // Reads a file, as the user chose for its header earlier or as it looks. Throws FileError.
  explicit CsvFile(tables::TextFile text);

  BookKind kind() const override { return BookKind::Csv; }
  QList<Entry> entries() const override;
  QStringList write(const QString& path, const QList<Entry>& entries) override;

  // Writes a copy for spreadsheet programs, which run a cell that begins with = + - or @ as a
  // formula: such cells get an apostrophe in front.
  QStringList writeForSpreadsheet(const QString& path, const QList<Entry>& entries) const;

  // True for a file with the columns that the program itself writes.
  bool hasOwnColumns() const;

  const QStringList& header() const { return _header; }
  int rowCount() const { return static_cast<int>(_rows.size()); }
  QStringList cells(int row) const;
  QByteArray firstLine() const;

  const ColumnChoice& choice() const { return _choice; }
  // Reads the file once more, otherwise. Throws FileError where the delimiter leaves a cell too
  // long; the file is then as it was.
  void choose(const ColumnChoice& choice);

 private:
  struct Output;
  Output compose(const QList<Entry>& entries) const;
  void appendRow(Output& output, const Entry& entry) const;
  QByteArray changedRow(const QByteArray& row, const QString& label, int& wholeLabels) const;
  QByteArray newRow(const QString& label, int& wholeLabels) const;
  QStringList notesOn(const Output& output) const;

  tables::TextFile _text;
  ColumnChoice _choice;
  QStringList _header;
  tables::TextRange _headerRange;  // with the blank lines above it
  QList<tables::TextRange> _rows;
  QStringList _labels;  // of the rows, as they were read
  QByteArray _lineBreak = "\r\n";
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_CSV_CSVFILE_H_
