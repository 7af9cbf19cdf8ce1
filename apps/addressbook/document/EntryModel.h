#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_DOCUMENT_ENTRYMODEL_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_DOCUMENT_ENTRYMODEL_H_

#include <QAbstractTableModel>
#include <QList>
#include <QStringList>

#include "apps/addressbook/book/Book.h"

namespace postwright::addressbook {

// The entries of a book as the table shows them: those that pass the search, in the order asked
// for.
//
// Searching and sorting happen on request alone: an entry that is edited or checked keeps its row,
// and one that is added is shown whatever is searched for, until the next request.
class EntryModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  enum Column { Name, Street, Place, Zip, Sharing, Kind, Checked, Confirmed, kColumns };

  // Which entries are shown, besides what is searched for.
  struct Filter {
    enum Kind { All, ToCheck, Failed, Confirmation, Reason, Shared };
    Kind kind = All;
    Known known = Known::NotTold;  // of a Confirmation
    QString reason = {};           // of a Reason: the failure, as the service gave it

    bool operator==(const Filter&) const = default;
  };

  // What the names are sorted by.
  enum class NameOrder { AsWritten, LastName };

  // A CheckState, of any column.
  static constexpr int kStateRole = Qt::UserRole;
  // In sort(): the order of the book.
  static constexpr int kBookOrder = -1;

  explicit EntryModel(const Book& book, QObject* parent = nullptr);

  // Shows the entries whose labels hold every word of `text`, in any case.
  void search(const QString& text, const Filter& filter);
  // True where the file tells the addresses of somebody apart.
  bool hasKinds() const;
  // True where several entries have one address.
  bool hasSharing() const { return _book.shared() > 0; }
  // True where it is known how far the service knows an entry.
  bool hasConfirmations() const;
  bool isSearching() const { return !_words.isEmpty() || _filter.kind != Filter::All; }

  // Counts from the next sort() on.
  void setNameOrder(NameOrder order) { _nameOrder = order; }
  NameOrder nameOrder() const { return _nameOrder; }

  // Rows of the book, and places in the table.
  int bookRow(const QModelIndex& index) const { return _shown[index.row()]; }
  QList<int> bookRows(const QModelIndexList& indexes) const;  // ascending
  QList<int> shownBookRows() const { return _shown; }         // as shown
  // The place in the table; invalid where the entry is not shown.
  QModelIndex indexOf(int bookRow, int column = 0) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  void sort(int column, Qt::SortOrder order) override;

  // What the columns of the service say.
  static QString stateText(const Entry& entry, CheckState state);
  static QString confirmationText(const Entry& entry, CheckState state);
  static QString confirmationText(Known known);
  // "3 at this address"; empty for one.
  static QString sharingText(int sharing);

 private:
  static QString toolTip(const QString& text);
  QString serviceTip(int bookRow, int column) const;
  bool passes(int bookRow) const;
  bool passesFilter(int bookRow) const;
  QString text(int bookRow, int column) const;
  void arrange();
  QString sortText(int bookRow) const;
  int sortRank(int bookRow) const;
  void bringTogether();
  void showAnew();
  void bookWasReset();
  void bookChanged(const QList<int>& rows);
  void bookInserted(const QList<int>& rows);
  void bookRemoved(const QList<int>& rows);

  const Book& _book;
  QList<int> _shown;  // rows of the book
  QStringList _words;
  Filter _filter;
  NameOrder _nameOrder = NameOrder::AsWritten;
  int _sortColumn = kBookOrder;
  Qt::SortOrder _sortOrder = Qt::AscendingOrder;
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_DOCUMENT_ENTRYMODEL_H_
