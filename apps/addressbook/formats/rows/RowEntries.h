#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_ROWS_ROWENTRIES_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_ROWS_ROWENTRIES_H_

#include <QCoreApplication>
#include <QList>
#include <QStringList>
#include <functional>
#include <optional>

#include "apps/addressbook/book/Entry.h"
#include "apps/tables/TableChoice.h"

namespace postwright::addressbook {

// The entries that the rows of a table make by the columns that were chosen: one a row, or one for
// each of its addresses.
//
//   RowEntries read(choice);
//   for (const QStringList& row : rows) read.takeRow(row);
//   show(read.entries());
class RowEntries {
  Q_DECLARE_TR_FUNCTIONS(postwright::addressbook::RowEntries)

 public:
  class Changes;

  RowEntries() = default;
  explicit RowEntries(QList<tables::AddressColumns> addresses) : _addresses(std::move(addresses)) {}

  // Takes the next row. An address that repeats an earlier one of it is not an entry of its own.
  void takeRow(const QStringList& cells);

  QList<Entry> entries() const;

 private:
  // An address of a row, and so an entry.
  struct Slot {
    int row = 0;
    int address = 0;  // of _addresses
    QString kind;
    QString label;  // as it was read
    QString lastName;
  };

  QList<tables::AddressColumns> _addresses;
  QList<Slot> _slots;  // in the order of their rows
  int _rows = 0;
};

// What becomes of the rows once entries were edited, removed and added.
//
//   RowEntries::Changes changes(read, entries);
//   for (const QStringList& row : rows) {
//     const auto fate = changes.next([&] { return row; });
//   }
class RowEntries::Changes {
 public:
  struct Fate {
    bool isRemoved = false;            // all of its entries were
    std::optional<QStringList> cells;  // none: as it was
  };

  // Both live longer than this.
  Changes(const RowEntries& read, const QList<Entry>& entries);

  // Tells about the next row; `cells` gives what it holds, and is asked where that is needed.
  Fate next(const std::function<QStringList()>& cells);

  // The cells of the rows that are new.
  const QList<QStringList>& added() const { return _added; }

  // What the user should know once all rows were told.
  QStringList notes() const;

 private:
  QStringList divided(const tables::ColumnMapping& mapping, const QString& label,
                      const QStringList& cells);

  const RowEntries& _read;
  QList<const QString*> _labels;  // of the slots; null: removed
  QList<QStringList> _added;
  qsizetype _slot = 0;
  int _row = 0;
  int _wholeLabels = 0;  // those that would not divide into columns
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_ROWS_ROWENTRIES_H_
