#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_WORKBOOK_WORKBOOKFILE_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_WORKBOOK_WORKBOOKFILE_H_

#include <QCoreApplication>
#include <QSet>

#include "apps/addressbook/book/BookFile.h"
#include "apps/addressbook/book/BookFormat.h"
#include "apps/addressbook/book/ColumnedFile.h"
#include "apps/addressbook/formats/rows/RowEntries.h"
#include "apps/workbook/Workbook.h"

namespace postwright::addressbook {

// An address book in a sheet of a spreadsheet program's file: a row an entry, or one for each of
// its addresses.
//
// Cells that are not changed, other sheets and all else in the file are kept byte for byte. A row
// whose entries are removed stays as an empty one, so that no formula means another; a ZIP code
// that the spreadsheet made a number has the zeros before it again, and stays a number until it
// changes.
class WorkbookFile final : public BookFile, public ColumnedFile {
  Q_DECLARE_TR_FUNCTIONS(postwright::addressbook::WorkbookFile)

 public:
  static const BookFormat& xlsxFormat();
  static const BookFormat& odsFormat();

  // The largest file: 128 MiB, which is more than a full sheet.
  static constexpr qint64 kLargest = 128LL * 1024 * 1024;

  // Reads a file, as the user chose for its header earlier or as it looks. Throws FileError.
  WorkbookFile(const BookFormat& format, QByteArray bytes);

  const BookFormat& format() const override { return _format; }
  ColumnedFile* columns() override { return this; }
  QList<Entry> entries() const override { return _entries.entries(); }
  QStringList write(const QString& path, const QList<Entry>& entries) override;

  QStringList header() const override;
  int rowCount() const override { return static_cast<int>(_rows.size()) - _firstRow; }
  QStringList cells(int row) const override;
  QString label(int row, const tables::ColumnMapping& mapping) const override;
  bool isText() const override { return false; }
  QStringList sheets() const override { return _workbook->sheets(); }
  bool needsChoice() const override;
  const tables::TableChoice& choice() const override { return _choice; }
  tables::TableChoice guess(const tables::TableChoice& choice) const override;
  void choose(const tables::TableChoice& choice) override;
  void rememberChoice() const override;
  QStringList writeForSpreadsheet(const QString& path, const QList<Entry>& entries) const override;

 private:
  void take(int sheet);
  const QList<workbook::SheetRow>& rowsOf(int sheet) const;
  QStringList withZeros(const workbook::SheetRow& row, const QSet<int>& zipColumns) const;
  QSet<int> zipColumns() const;

  const BookFormat& _format;
  std::unique_ptr<workbook::Workbook> _workbook;
  mutable int _readSheet = -1;  // the one that was read last, and its rows
  mutable QList<workbook::SheetRow> _readRows;
  tables::TableChoice _choice;
  QByteArray _key;     // for ColumnMemory: the header that was guessed,
  int _rowsAbove = 0;  // and how many rows are above it
  QList<workbook::SheetRow> _rows;
  int _firstRow = 0;  // of _rows that is an entry
  QStringList _header;
  RowEntries _entries;
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_WORKBOOK_WORKBOOKFILE_H_
