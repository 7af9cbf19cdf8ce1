#include "apps/addressbook/dialogs/PreferencesDialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "apps/ServerOption.h"
#include "apps/addressbook/dialogs/LookFields.h"
#include "apps/addressbook/fix/WhoAnswers.h"
#include "apps/addressbook/widgets/ScrollingForm.h"

namespace postwright::addressbook {

namespace {

constexpr int kFieldWidth = 320;

// A line of explanation under a field.
QLabel* makeHint(const QString& text, QWidget* parent) {
  auto* const hint = new QLabel(text, parent);
  hint->setWordWrap(true);
  hint->setForegroundRole(QPalette::PlaceholderText);
  return hint;
}

}  // namespace

PreferencesDialog::PreferencesDialog(const Preferences& preferences, const AddressFixer& fixer,
                                     QWidget* parent)
    : QDialog(parent), _preferences(preferences), _fixer(fixer) {
  setWindowTitle(tr("Preferences"));
  auto* const buttons = new QDialogButtonBox(this);
  _accept = buttons->addButton(tr("&OK"), QDialogButtonBox::AcceptRole);
  buttons->addButton(tr("Cancel"), QDialogButtonBox::RejectRole);
  auto* const groups = new QWidget;
  auto* const column = new QVBoxLayout(groups);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(buildLook());
  column->addWidget(buildService());
  column->addWidget(buildWindow());
  column->addStretch(1);
  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(new ScrollingForm(groups, this), 1);
  layout->addWidget(buttons);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  checkServer();
  resizeToScreen(*this, sizeHint());
}

QWidget* PreferencesDialog::buildLook() {
  auto* const group = new QGroupBox(tr("Corrected labels"), this);
  auto* const layout = new QFormLayout(group);
  _look = new LookFields(_preferences.fix, group);
  _spellings = new QLineEdit(_preferences.fix.spellings, group);
  _spellings->setObjectName(QStringLiteral("spellings"));
  _spellings->setPlaceholderText(QStringLiteral("DeWitt; MacArthur"));
  _spellings->setMinimumWidth(kFieldWidth);
  layout->addRow(_look);
  layout->addRow(tr("Special &spellings:"), _spellings);
  layout->addRow(QString(),
                 makeHint(tr("Words that mixed case is to write just so, with semicolons "
                             "between them."),
                          group));
  connect(_spellings, &QLineEdit::textChanged, _look, &LookFields::setSpellings);
  return group;
}

QWidget* PreferencesDialog::buildService() {
  auto* const group = new QGroupBox(tr("Who answers"), this);
  auto* const layout = new QFormLayout(group);
  _server = new QLineEdit(_preferences.fix.server, group);
  _server->setObjectName(QStringLiteral("server"));
  const QString usual = _fixer.serverFor({});
  _server->setPlaceholderText(usual.isEmpty() ? tr("none: this program answers by itself")
                                              : tr("the usual one: %1").arg(usual));
  _serverNote = makeHint(QString(), group);
  _serverNote->setObjectName(QStringLiteral("serverNote"));
  _serverNote->setTextFormat(Qt::PlainText);
  layout->addRow(tr("&Verify service:"), _server);
  layout->addRow(QString(), _serverNote);
  connect(_server, &QLineEdit::textChanged, this, &PreferencesDialog::checkServer);
  return group;
}

QWidget* PreferencesDialog::buildWindow() {
  auto* const group = new QGroupBox(tr("Window"), this);
  auto* const layout = new QFormLayout(group);
  _appearance = new QComboBox(group);
  _appearance->setObjectName(QStringLiteral("appearance"));
  _appearance->addItems({tr("As the desktop"), tr("Light"), tr("Dark")});
  _appearance->setCurrentIndex(static_cast<int>(_preferences.appearance));
  layout->addRow(tr("&Appearance:"), _appearance);
  return group;
}

void PreferencesDialog::checkServer() {
  const QString server = _server->text().trimmed();
  const bool isGood = server.isEmpty() || CheckServer(server.toStdString()).empty();
  _serverNote->setText(isGood ? whoAnswers(_fixer, server)
                              : tr("This is not a host with a port, as in 127.0.0.1:8470."));
  _serverNote->setForegroundRole(isGood ? QPalette::PlaceholderText : QPalette::WindowText);
  _accept->setEnabled(isGood);
}

Preferences PreferencesDialog::preferences() const {
  Preferences preferences = _preferences;
  preferences.fix = _look->settings();
  preferences.fix.spellings = _spellings->text().trimmed();
  preferences.fix.server = _server->text().trimmed();
  preferences.appearance = static_cast<Appearance>(_appearance->currentIndex());
  return preferences;
}

}  // namespace postwright::addressbook
