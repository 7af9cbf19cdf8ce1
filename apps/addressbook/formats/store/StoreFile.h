#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_STORE_STOREFILE_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_STORE_STOREFILE_H_

#include <QCoreApplication>
#include <QFile>
#include <QHash>
#include <QStringList>
#include <QVariantList>
#include <memory>

#include "apps/addressbook/book/BookFile.h"

namespace postwright::addressbook {

class Database;

// The program's own file: an SQLite database that keeps with each entry when it was last found
// right or turned down, how far it was confirmed, and by whom. Its table:
//
//   entries (id INTEGER PRIMARY KEY, label TEXT, checked_on TEXT, checked_text BLOB, failure TEXT,
//            confirmation INTEGER, confirmation_source TEXT)
//
// The last two are those of version 2; a file of version 1 gets them when it is saved.
// The order of the book is that of the ids. Other tables, and other columns of this one, are kept.
class StoreFile final : public BookFile {
  Q_DECLARE_TR_FUNCTIONS(postwright::addressbook::StoreFile)

 public:
  static const BookFormat& bookFormat();

  // A new file.
  StoreFile() = default;

  // Reads the file at `path`. Throws FileError for a database that is damaged, is not an address
  // book, or was made by a later version of the program.
  explicit StoreFile(const QString& path);

  const BookFormat& format() const override { return bookFormat(); }
  QList<Entry> entries() const override { return _entries; }
  QStringList write(const QString& path, const QList<Entry>& entries) override;

 private:
  void read(Database& database);
  void readColumns(Database& database);
  void update(Database& database, const QList<Entry>& entries) const;
  QString upsert() const;
  void copyTo(const QString& path) const;

  QString _path;                   // of the file that was read or written last; empty: none
  std::unique_ptr<QFile> _source;  // the same, open: it is there still where its name is gone
  QList<Entry> _entries;           // as they were read
  QStringList _otherColumns;       // those the program does not know
  QHash<qint64, QVariantList> _otherCells;  // by id, as they were read; empty without such columns
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_STORE_STOREFILE_H_
