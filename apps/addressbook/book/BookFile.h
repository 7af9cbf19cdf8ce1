#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_BOOK_BOOKFILE_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_BOOK_BOOKFILE_H_

#include <QList>
#include <QString>
#include <QStringList>

#include "apps/addressbook/book/Entry.h"

namespace postwright::addressbook {

struct BookFormat;
class ColumnedFile;

// A file as it was when it was opened, with all that it holds besides the labels.
//
//   const std::unique_ptr<BookFile> file = openBookFile(path);
//   QList<Entry> entries = file->entries();
//   entries[0].label = "Jane Doe\n12 MAIN ST\nAUSTIN, TX 78701";
//   file->write(path, entries);
//
// What was read stays with the object for good, whatever is written later: an entry that was
// removed and saved, then brought back and saved again, has all that it held.
class BookFile {
 public:
  BookFile() = default;
  BookFile(const BookFile&) = delete;
  BookFile& operator=(const BookFile&) = delete;
  virtual ~BookFile() = default;

  virtual const BookFormat& format() const = 0;

  // The file as one of rows and columns; null where it is none.
  virtual ColumnedFile* columns() { return nullptr; }

  // What the user should know about how the file was read, mostly nothing.
  virtual QStringList notes() const { return {}; }

  // The entries in the order of the file; their ids are what write() knows them by.
  virtual QList<Entry> entries() const = 0;

  // Writes `entries`, and what the file holds besides them, to `path`, in one step that leaves the
  // old or the new file, whole, should the program be killed. Entries that entries() did not give
  // are new. An entry whose label is as it was read is written as it was.
  //
  // Returns what the user should know about how it was written, mostly nothing. Throws FileError
  // where it could not be; the file at `path` is then as it was.
  virtual QStringList write(const QString& path, const QList<Entry>& entries) = 0;
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_BOOK_BOOKFILE_H_
