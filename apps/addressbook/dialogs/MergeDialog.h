#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_DIALOGS_MERGEDIALOG_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_DIALOGS_MERGEDIALOG_H_

#include <QDialog>

class QPlainTextEdit;

namespace postwright::addressbook {

class Book;

// Asks what the label of several entries is to be, that are made one.
class MergeDialog : public QDialog {
  Q_OBJECT

 public:
  // The entries at `rows`, which have one address, are to be made one.
  MergeDialog(const Book& book, const QList<int>& rows, QWidget* parent = nullptr);

  QString label() const;

 private:
  QPlainTextEdit* _editor;
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_DIALOGS_MERGEDIALOG_H_
