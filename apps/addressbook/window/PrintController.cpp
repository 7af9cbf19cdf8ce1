#include "apps/addressbook/window/PrintController.h"

#include "apps/addressbook/book/Book.h"
#include "apps/addressbook/lists/AskList.h"
#include "apps/addressbook/printing/AskDialog.h"
#include "apps/addressbook/printing/PrintDialog.h"
#include "apps/addressbook/settings/Preferences.h"

namespace postwright::addressbook {

PrintController::PrintController(const Book& book, QWidget* window)
    : QObject(window), _book(book), _window(window) {}

void PrintController::printLabels(const QList<int>& shown, const QList<int>& selected) {
  Preferences preferences = Preferences::load();
  PrintDialog dialog(printableLabels(_book, shown), printableLabels(_book, selected), preferences,
                     _window);
  if (dialog.exec() == QDialog::Accepted) {
    preferences = dialog.preferences();
    emit told(dialog.note());
  } else {
    // What was measured stays, though nothing was printed.
    preferences.print.ownSheets = dialog.preferences().print.ownSheets;
  }
  preferences.save();
  emit preferencesChanged();
}

void PrintController::listToAsk(const QList<int>& shown) {
  const QList<int> rows = AskList::of(_book, shown);
  if (rows.isEmpty()) {
    emit told(tr("None of the addresses that are shown was turned down."));
    return;
  }
  AskDialog(AskList::page(_book, rows), AskList::text(_book, rows), static_cast<int>(rows.size()),
            Preferences::load().print.sheet.paper, _window)
      .exec();
}

}  // namespace postwright::addressbook
