#include "apps/addressbook/window/StreetsController.h"

#include "apps/addressbook/dialogs/StreetsDialog.h"
#include "apps/addressbook/fix/WhoAnswers.h"
#include "apps/addressbook/settings/Preferences.h"
#include "apps/addressbook/widgets/MessageBar.h"

namespace postwright::addressbook {

StreetsController::StreetsController(const AddressFixer& fixer, MessageBar* bar, QWidget* window)
    : QObject(window), _fixer(fixer), _bar(bar), _window(window) {}

void StreetsController::tellMissing() {
  const QString missing = missingStreets(_fixer, Preferences::load().fix.server);
  if (missing == _missing) {
    return;
  }
  _missing = missing;
  if (missing.isEmpty()) {
    _bar->hide();
  } else if (_fixer.ownStreets().problem.isEmpty()) {
    _bar->tell(missing, tr("Fetch Stree&ts…"), [this] { fetch(); });
  } else {
    _bar->tell(missing);
  }
}

void StreetsController::fetch() {
  if (_dialog.isNull()) {
    _dialog = new StreetsDialog(_window);
    _dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(_dialog, &StreetsDialog::fetched, this, [this](const QString& place) {
      const bool isUsed = _fixer.serverFor(Preferences::load().fix.server).isEmpty();
      emit told((isUsed
                     ? tr("The streets of %1 are there. Addresses are checked with them from now "
                          "on.")
                     : tr("The streets of %1 are there, but a service is asked, not this "
                          "program."))
                    .arg(place));
    });
    connect(_dialog, &QDialog::finished, this, [this] {
      _missing.clear();  // the bar has gone as its button was pressed
      tellMissing();
    });
  }
  _dialog->show();
  _dialog->raise();
  _dialog->activateWindow();
}

void StreetsController::leave() {
  delete _dialog;
}

}  // namespace postwright::addressbook
