#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_DOCUMENT_BOOKDOCUMENT_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_DOCUMENT_BOOKDOCUMENT_H_

#include <QDateTime>
#include <QObject>
#include <QStringList>
#include <QUndoStack>
#include <memory>

#include "apps/addressbook/book/Book.h"
#include "apps/addressbook/book/BookFile.h"
#include "apps/addressbook/book/CheckHistory.h"

namespace postwright::addressbook {

// The address book that is open: its entries, the file they came from, and what can be undone.
// Everything the user does to the entries goes through here.
class BookDocument : public QObject {
  Q_OBJECT

 public:
  explicit BookDocument(QObject* parent = nullptr);

  const Book& book() const { return _book; }
  QUndoStack& undoStack() { return _undoStack; }

  // Empty for a book that has no file yet.
  const QString& path() const { return _path; }
  QString title() const;

  // Null for a book that was not read from a file.
  BookFile* file() const { return _file.get(); }

  // Begins an empty book without a file.
  void clear();

  // Begins the book that `file` holds, read from `path`.
  void begin(std::unique_ptr<BookFile> file, const QString& path);

  // The kind of file that the book is saved as: that of its file, the program's own for a new book.
  const BookFormat& format() const;

  // Writes the book as a file of `format`, whatever its name; the path becomes the book's own. A
  // kind other than that of its file converts it. Returns what the user should know; throws
  // FileError.
  QStringList save(const QString& path, const BookFormat& format);

  // True where another program has changed or removed the file since it was read or saved.
  bool isChangedOnDisk() const;

  // True where saving as `format` would lose things that only the present file can hold.
  bool leavesBehind(const BookFormat& format) const { return _file && &format != &_file->format(); }

  // Sets the label of an entry, as typed. Calls until endEdit() become one step for undoing.
  void edit(int row, const QString& label);
  void endEdit() { ++_session; }

  // Adds an entry at the end.
  void add(const QString& label);
  void remove(const QList<int>& rows);

  // Puts one entry with this label in the place of those at `rows`, as one step for undoing: the
  // first of them stays, with what else its file holds of it.
  void merge(const QList<int>& rows, const QString& label);

  // Takes the labels that a batch has corrected, as one step for undoing.
  void correct(const QList<PlacedEntry>& corrected);

  // Keeps what the service has said; that is knowledge, and undoing does not unlearn it.
  void keepChecks(const QList<PlacedEntry>& checked);

 signals:
  void titleChanged();
  // Undoing or redoing has changed these rows, or an entry was added there.
  void touched(const QList<int>& rows);

 private:
  // What tells one state of a file from another.
  struct DiskState {
    QDateTime changed;
    qint64 size = -1;
    bool operator==(const DiskState&) const = default;
  };
  static DiskState diskState(const QString& path);
  void begin(std::unique_ptr<BookFile> file, const QString& path, QList<Entry> entries);
  std::function<void(const QList<int>&)> toucher();

  Book _book;
  QUndoStack _undoStack;
  CheckHistory _history;
  std::unique_ptr<BookFile> _file;
  QString _path;
  DiskState _diskState;
  int _session = 1;
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_DOCUMENT_BOOKDOCUMENT_H_
