#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_DIALOGS_COLUMNDIALOG_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_DIALOGS_COLUMNDIALOG_H_

#include <QDialog>

#include "apps/addressbook/book/ColumnedFile.h"

class QComboBox;
class QLabel;
class QPushButton;
class QTableWidget;
class QToolButton;

namespace postwright::addressbook {

class LabelPreview;
class ReadingFields;

// Asks which columns of a file make the label, and shows the labels that come of it.
class ColumnDialog : public QDialog {
  Q_OBJECT

 public:
  // `file` lives longer than the dialog and is read as chosen when the dialog is accepted.
  ColumnDialog(ColumnedFile& file, const QString& name, QWidget* parent = nullptr);

  void accept() override;

 private:
  QWidget* buildAddresses();
  QWidget* buildPreview();
  void take(const tables::TableChoice& choice);
  void addressChanged(int address);
  void fillTable();
  void readingChanged();
  tables::ColumnMapping mapping() const;
  void showRow(int row);
  void refresh() { showRow(_row); }

  ColumnedFile& _file;
  tables::TableChoice _choice;
  int _address = 0;  // the one whose columns are shown
  QWidget* _whichRow = nullptr;
  QComboBox* _which = nullptr;
  int _row = 0;
  ReadingFields* _reading;
  QLabel* _problem;
  QTableWidget* _table;
  LabelPreview* _preview = nullptr;
  QLabel* _rowText = nullptr;
  QToolButton* _previous = nullptr;
  QToolButton* _next = nullptr;
  QPushButton* _accept = nullptr;
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_DIALOGS_COLUMNDIALOG_H_
