#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_PRINTING_ASKDIALOG_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_PRINTING_ASKDIALOG_H_

#include <QDialog>

#include "apps/addressbook/sheet/LabelSheet.h"

namespace postwright::addressbook {

// Shows the list of addresses to ask people about, to be printed, saved, or copied into a mail.
class AskDialog : public QDialog {
  Q_OBJECT

 public:
  // `page` is the list of `entries` entries in HTML, `text` the same for a mail.
  AskDialog(const QString& page, const QString& text, int entries, Paper paper,
            QWidget* parent = nullptr);
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_PRINTING_ASKDIALOG_H_
