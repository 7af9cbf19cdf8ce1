#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_PRINTING_PRESORTDIALOG_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_PRINTING_PRESORTDIALOG_H_

#include <QDialog>

#include "apps/addressbook/sheet/LabelSheet.h"
#include "apps/addressbook/sheet/Presort.h"

namespace postwright::addressbook {

// Shows how many pieces of a mailing each three-digit prefix has, for printing on a sheet that goes
// along to the post office.
class PresortDialog : public QDialog {
  Q_OBJECT

 public:
  // The sheet is printed on letter paper, or on A4 where `paper` is that.
  PresortDialog(QList<Presort::Count> counts, Paper paper, QWidget* parent = nullptr);

 private:
  QWidget* buildTable();

  QList<Presort::Count> _counts;
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_PRINTING_PRESORTDIALOG_H_
