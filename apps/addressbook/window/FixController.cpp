#include "apps/addressbook/window/FixController.h"

#include "apps/addressbook/dialogs/FixDialog.h"
#include "apps/addressbook/document/BookDocument.h"
#include "apps/addressbook/settings/Preferences.h"

namespace postwright::addressbook {

FixController::FixController(BookDocument& document, AddressFixer& fixer, QWidget* window)
    : QObject(window), _document(document), _fixer(fixer), _window(window) {}

void FixController::fix(const QList<int>& selected) {
  Preferences preferences = Preferences::load();
  FixDialog dialog(_document.book(), selected, preferences.fix, _window);
  if (dialog.exec() == QDialog::Accepted) {
    preferences.fix = dialog.options();
    preferences.save();
    run(dialog.rows());
  }
}

void FixController::fixSelected(const QList<int>& selected) {
  run(rowsToFix(_document.book(), selected, true));
}

void FixController::fixFailed() {
  run(failedRows(_document.book()));
}

void FixController::run(const QList<int>& rows) {
  const Book& book = _document.book();
  if (rows.isEmpty()) {
    emit told(tr("None of these entries has an address to check."), false);
    return;
  }
  _document.endEdit();
  const QList<FixOutcome> outcomes =
      _fixer.fix(labelsAt(book, rows), Preferences::load().fix, _window);
  if (outcomes.isEmpty()) {
    return;  // the user cancelled
  }
  const BookChanges changes = changesOf(book, rows, outcomes, QDate::currentDate());
  _document.correct(changes.labels);
  _document.keepChecks(changes.checked);
  QStringList sentences{tr("%n addresses corrected.", nullptr, changes.corrected),
                        tr("%n already right.", nullptr, changes.right)};
  if (changes.unconfirmed > 0) {
    sentences += tr("%n well written, but not confirmed.", nullptr, changes.unconfirmed);
  }
  if (changes.formed > 0) {
    sentences += tr("%n of these in the chosen form now.", nullptr, changes.formed);
  }
  sentences += tr("%n failed.", nullptr, changes.failed);
  if (changes.leftRight > 0) {
    sentences += tr("%n checked before got no answer.", nullptr, changes.leftRight);
  }
  emit told(sentences.join(QLatin1Char(' ')), changes.failed > 0);
}

}  // namespace postwright::addressbook
