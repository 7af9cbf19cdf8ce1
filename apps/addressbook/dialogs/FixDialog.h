#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_DIALOGS_FIXDIALOG_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_DIALOGS_FIXDIALOG_H_

#include <QDialog>

#include "apps/addressbook/book/Book.h"
#include "apps/addressbook/fix/AddressFixer.h"

class QCheckBox;
class QLabel;
class QPushButton;
class QRadioButton;
class QVBoxLayout;

namespace postwright::addressbook {

class LookFields;

// Asks which addresses are to be checked and how the corrected ones are to look. Its button says
// how many there are.
class FixDialog : public QDialog {
  Q_OBJECT

 public:
  // `book` lives longer than the dialog; `selected` are rows of it.
  FixDialog(const Book& book, const QList<int>& selected, const FixSettings& options,
            QWidget* parent = nullptr);

  // The rows that are to be checked, ascending.
  QList<int> rows() const;
  FixSettings options() const;

 private:
  QWidget* buildScope();
  QWidget* buildLook();
  QRadioButton* addScope(QVBoxLayout* layout, const char* name, const QString& text,
                         qsizetype count);
  void refresh();

  const Book& _book;
  QList<int> _selected;
  QList<int> _failed;
  FixSettings _options;
  QRadioButton* _allButton = nullptr;
  QRadioButton* _selectedButton = nullptr;
  QRadioButton* _failedButton = nullptr;
  QCheckBox* _includesRight = nullptr;
  LookFields* _look = nullptr;
  QLabel* _skipped = nullptr;
  QPushButton* _start = nullptr;
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_DIALOGS_FIXDIALOG_H_
