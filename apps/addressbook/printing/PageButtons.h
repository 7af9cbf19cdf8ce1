#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_PRINTING_PAGEBUTTONS_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_PRINTING_PAGEBUTTONS_H_

#include <QDialogButtonBox>

#include "apps/addressbook/sheet/LabelSheet.h"

class QDialog;

namespace postwright::addressbook {

// The buttons of a dialog that shows a page of text: it is printed, or saved as a PDF file.
class PageButtons : public QDialogButtonBox {
  Q_OBJECT

 public:
  // `html` is printed on letter paper, or on A4 where `paper` is that; `fileName` is offered for
  // the PDF file, whose title is that of `dialog`.
  PageButtons(QString html, Paper paper, QString fileName, QDialog* dialog);

  // Writes the page to a PDF file; shows what goes wrong.
  void savePdfTo(const QString& path);

 private:
  void print();
  void savePdf();

  QString _html;
  QString _fileName;
  LabelSheet _sheet;  // of which the paper counts alone
  QDialog* _dialog;
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_PRINTING_PAGEBUTTONS_H_
