#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_BOOK_COLUMNEDFILE_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_BOOK_COLUMNEDFILE_H_

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include "apps/addressbook/book/Entry.h"
#include "apps/tables/TableChoice.h"

namespace postwright::addressbook {

// What a file of rows and columns can be asked: the user says which of its columns make the label.
class ColumnedFile {
 public:
  virtual ~ColumnedFile() = default;

  // The names of the columns, of a file without names those that a spreadsheet would give them.
  virtual QStringList header() const = 0;
  virtual int rowCount() const = 0;
  virtual QStringList cells(int row) const = 0;
  // The label of a row by other columns than those that were chosen.
  virtual QString label(int row, const tables::ColumnMapping& mapping) const {
    return mapping.compose(cells(row));
  }

  // True for a text, whose encoding and delimiter can be chosen.
  virtual bool isText() const { return true; }
  // The encodings that it can be read in, which is the first of each kind where there are several.
  virtual QList<tables::TextEncoding> encodings() const { return {}; }
  // The names of its sheets, for a workbook.
  virtual QStringList sheets() const { return {}; }

  // True where nobody has said yet which columns make the label.
  virtual bool needsChoice() const = 0;
  virtual const tables::TableChoice& choice() const = 0;
  // The same with the mapping guessed again, as befits what else was chosen.
  virtual tables::TableChoice guess(const tables::TableChoice& choice) const = 0;
  // Reads the file once more, otherwise. Throws FileError where it cannot be read so; the file is
  // then as it was.
  virtual void choose(const tables::TableChoice& choice) = 0;
  // Remembers the choice for files with these columns.
  virtual void rememberChoice() const = 0;

  // Writes a CSV copy for spreadsheet programs, which run a cell that begins with = + - or @ as a
  // formula: such cells get an apostrophe in front. Returns what the user should know.
  virtual QStringList writeForSpreadsheet(const QString& path,
                                          const QList<Entry>& entries) const = 0;
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_BOOK_COLUMNEDFILE_H_
