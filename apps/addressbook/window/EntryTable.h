#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_WINDOW_ENTRYTABLE_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_WINDOW_ENTRYTABLE_H_

#include <QTableView>

#include "apps/addressbook/document/EntryModel.h"

namespace postwright::addressbook {

// The table of entries: rows are selected whole, columns sort where their title is clicked, and the
// widths the user gives them are remembered.
class EntryTable : public QTableView {
  Q_OBJECT

 public:
  // `model` lives longer than the table.
  explicit EntryTable(EntryModel& model, QWidget* parent = nullptr);
  ~EntryTable() override;

  // Rows of the book that are selected, ascending.
  QList<int> selectedBookRows() const;

  // Selects the entries that are shown and brings the first of them into view.
  void selectBookRows(const QList<int>& rows);

  // Moves the selection by one row, as far as there is one.
  void selectNext();

 signals:
  void selectedRowsChanged();
  // Return, F2 or a double click.
  void editRequested();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

 private:
  void showColumns();
  void fitColumns();
  void takeWidth(int column, int before, int now);

  EntryModel& _model;
  bool _areWidthsUsers = true;  // given or kept, not fitted
  bool _isFitting = false;
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_WINDOW_ENTRYTABLE_H_
