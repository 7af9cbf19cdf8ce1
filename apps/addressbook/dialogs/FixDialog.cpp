#include "apps/addressbook/dialogs/FixDialog.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "apps/addressbook/dialogs/LookFields.h"
#include "apps/addressbook/fix/FixPlan.h"
#include "apps/addressbook/widgets/ScrollingForm.h"

namespace postwright::addressbook {

FixDialog::FixDialog(const Book& book, const QList<int>& selected, const FixSettings& options,
                     QWidget* parent)
    : QDialog(parent),
      _book(book),
      _selected(selected),
      _failed(failedRows(book)),
      _options(options) {
  setWindowTitle(tr("Fix Addresses"));
  auto* const buttons = new QDialogButtonBox(this);
  _start = buttons->addButton(QString(), QDialogButtonBox::AcceptRole);
  _start->setObjectName(QStringLiteral("start"));
  buttons->addButton(tr("Cancel"), QDialogButtonBox::RejectRole);
  auto* const groups = new QWidget;
  auto* const column = new QVBoxLayout(groups);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(buildScope());
  column->addWidget(buildLook());
  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(new ScrollingForm(groups, this), 1);
  layout->addWidget(buttons);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  refresh();
  resizeToScreen(*this, sizeHint());
}

QWidget* FixDialog::buildScope() {
  auto* const group = new QGroupBox(tr("Which"), this);
  auto* const layout = new QVBoxLayout(group);
  _allButton = addScope(layout, "all", tr("&All entries (%1)"), _book.size());
  _selectedButton =
      addScope(layout, "selected", tr("The &selected entries (%1)"), _selected.size());
  _failedButton = addScope(layout, "failed", tr("Those that failed &before (%1)"), _failed.size());
  _includesRight = new QCheckBox(tr("Ask again about those &checked in the last half year"), group);
  _includesRight->setObjectName(QStringLiteral("includesRight"));
  _skipped = new QLabel(group);
  _skipped->setObjectName(QStringLiteral("skipped"));
  layout->addWidget(_includesRight);
  layout->addWidget(_skipped);
  connect(_includesRight, &QCheckBox::toggled, this, &FixDialog::refresh);
  // Several selected entries are meant; a single one is just where the user happens to be.
  (_selected.size() > 1 ? _selectedButton : _allButton)->setChecked(true);
  return group;
}

QRadioButton* FixDialog::addScope(QVBoxLayout* layout, const char* name, const QString& text,
                                  qsizetype count) {
  auto* const button = new QRadioButton(text.arg(count), this);
  button->setObjectName(QLatin1String(name));
  button->setEnabled(count > 0);
  layout->addWidget(button);
  connect(button, &QRadioButton::toggled, this, &FixDialog::refresh);
  return button;
}

QWidget* FixDialog::buildLook() {
  auto* const group = new QGroupBox(tr("Corrected labels"), this);
  auto* const layout = new QVBoxLayout(group);
  _look = new LookFields(_options, group);
  layout->addWidget(_look);
  return group;
}

void FixDialog::refresh() {
  if (_start == nullptr || _look == nullptr) {
    return;  // still being built
  }
  const qsizetype count = rows().size();
  const bool isSkipping = !_failedButton->isChecked();
  _includesRight->setEnabled(isSkipping);
  const qsizetype all = _selectedButton->isChecked() ? _selected.size()
                        : isSkipping                 ? _book.size()
                                                     : _failed.size();
  _skipped->setText(all == count ? tr("None is skipped.")
                                 : tr("%n are skipped: checked lately, or without an address.",
                                      nullptr, static_cast<int>(all - count)));
  _start->setText(count == 0 ? tr("Nothing to Fix")
                             : tr("&Fix %n Addresses…", nullptr, static_cast<int>(count)));
  _start->setEnabled(count > 0);
  _start->setDefault(true);
}

QList<int> FixDialog::rows() const {
  if (_failedButton->isChecked()) {
    return _failed;
  }
  return rowsToFix(_book, _selectedButton->isChecked() ? _selected : allRows(_book),
                   _includesRight->isChecked());
}

FixSettings FixDialog::options() const {
  return _look->settings();
}

}  // namespace postwright::addressbook
