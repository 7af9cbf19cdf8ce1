#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_BOOK_BOOK_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_BOOK_BOOK_H_

#include <QHash>
#include <QList>
#include <QObject>
#include <algorithm>

#include "apps/addressbook/book/Entry.h"

namespace postwright::addressbook {

// An entry and its row in the book.
struct PlacedEntry {
  int row = 0;
  Entry entry;
};

// The entries of an open address book, in order, and word of every change to them.
//
// Each operation takes time in proportion to the book at worst, however many rows it is given. Rows
// are given in ascending order, each once.
class Book : public QObject {
  Q_OBJECT

 public:
  explicit Book(QObject* parent = nullptr);

  const QList<Entry>& entries() const { return _entries; }
  const Entry& at(int row) const { return _entries[row]; }
  // Where the entry stood with the service on the day the book was begun.
  CheckState stateAt(int row) const { return _told[row].state; }
  // How many entries stand so.
  int count(CheckState state) const;
  // What tells the address of an entry from others; empty where it has none.
  const QString& addressAt(int row) const { return _told[row].address; }
  // How many entries have the address of this one, itself counted; 1 where it has none.
  int sharing(int row) const { return std::max(_sharing.value(addressAt(row)), 1); }
  int size() const { return static_cast<int>(_entries.size()); }
  // How many entries have an address that another one has too.
  int shared() const { return _shared; }
  // True for several entries of one address.
  bool haveOneAddress(const QList<int>& rows) const;

  // The row of the entry, or -1 where it is not in the book.
  int rowOf(qint64 id) const;

  // Begins another book, on the day `today`.
  void reset(const QList<Entry>& entries, QDate today);

  // Makes an entry that is not in the book yet, with an id that no entry of the book ever had.
  Entry makeEntry(const QString& label);

  // Inserts each entry so that it stands at its row when all are in.
  void insert(const QList<PlacedEntry>& placed);

  // Removes the entries and returns them as insert() takes them.
  QList<PlacedEntry> remove(const QList<int>& rows);

  // Puts the label of each entry in its row; nothing else of it is taken.
  void setLabels(const QList<PlacedEntry>& placed);
  void setChecks(const QList<PlacedEntry>& placed);

 signals:
  void wasReset();
  void changed(const QList<int>& rows);
  void inserted(const QList<int>& rows);  // as they are numbered now
  void removed(const QList<int>& rows);   // as they were numbered before

 private:
  // What is told of an entry, kept because telling takes a digest each.
  struct Told {
    CheckState state;
    QString address;
  };
  Told tell(const Entry& entry);
  void tellAnew(const QList<PlacedEntry>& placed);
  void forget(const Told& told);

  QList<Entry> _entries;
  QList<Told> _told;
  QHash<QString, int> _sharing;  // how many entries have an address
  int _shared = 0;
  QDate _today;
  qint64 _nextId = 1;
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_BOOK_BOOK_H_
