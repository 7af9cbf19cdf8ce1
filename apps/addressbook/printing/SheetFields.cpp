#include "apps/addressbook/printing/SheetFields.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCompleter>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>

#include "apps/addressbook/printing/SheetDialog.h"

namespace postwright::addressbook {

namespace {

constexpr int kMostCopies = 500;
constexpr int kFieldLetters = 26;

}  // namespace

SheetFields::SheetFields(const PrintableLabels& shown, const PrintableLabels& selected,
                         const PrintSettings& settings, QWidget* parent)
    : QWidget(parent), _shown(shown), _selected(selected), _own(settings.ownSheets) {
  auto* const form = new QFormLayout(this);
  addLabels(*form, settings);
  addSheet(*form, settings);
  showRefused();
  connect(_which, &QComboBox::currentIndexChanged, this, [this] {
    showRefused();
    emit labelsChanged();
  });
  connect(_refused, &QCheckBox::toggled, this, &SheetFields::labelsChanged);
  connect(_byZip, &QCheckBox::toggled, this, &SheetFields::labelsChanged);
  connect(_sheet, &QComboBox::currentIndexChanged, this, &SheetFields::sheetChosen);
  connect(_sheet->lineEdit(), &QLineEdit::editingFinished, this, &SheetFields::sheetTyped);
  connect(_start, &QSpinBox::valueChanged, this, &SheetFields::changed);
  connect(_copies, &QSpinBox::valueChanged, this, &SheetFields::changed);
}

void SheetFields::addLabels(QFormLayout& form, const PrintSettings& settings) {
  _which = new QComboBox(this);
  _which->setObjectName(QStringLiteral("which"));
  _which->addItem(tr("All shown (%1)").arg(_shown.texts.size()));
  if (!_selected.texts.isEmpty()) {
    _which->addItem(tr("The selected ones (%1)").arg(_selected.texts.size()));
  }
  // Several selected entries are meant; a single one is just where the user happens to be.
  _which->setCurrentIndex(_selected.texts.size() > 1 ? 1 : 0);
  _refused = new QCheckBox(this);
  _refused->setObjectName(QStringLiteral("refused"));
  _byZip = new QCheckBox(tr("In the order of &ZIP codes"), this);
  _byZip->setObjectName(QStringLiteral("byZip"));
  _byZip->setChecked(settings.isByZip);
  form.addRow(tr("&Which:"), _which);
  form.addRow(_refused);
  form.addRow(_byZip);
}

void SheetFields::addSheet(QFormLayout& form, const PrintSettings& settings) {
  _sheet = new QComboBox(this);
  _sheet->setObjectName(QStringLiteral("sheet"));
  _sheet->setEditable(true);
  _sheet->setInsertPolicy(QComboBox::NoInsert);
  _sheet->setMinimumContentsLength(kFieldLetters);
  _sheet->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  _sheet->completer()->setFilterMode(Qt::MatchContains);
  _sheet->completer()->setCompletionMode(QCompleter::PopupCompletion);
  _sheet->setToolTip(tr("Type the product number on the box, or choose"));
  fillSheets(settings.sheet.name);
  auto* const measure = new QPushButton(tr("&Own Measures…"), this);
  measure->setObjectName(QStringLiteral("ownMeasures"));
  measure->setAutoDefault(false);
  _start = new QSpinBox(this);
  _start->setObjectName(QStringLiteral("start"));
  _start->setRange(1, sheet().size());
  _copies = new QSpinBox(this);
  _copies->setObjectName(QStringLiteral("copies"));
  _copies->setRange(1, kMostCopies);
  form.addRow(tr("&Sheet:"), _sheet);
  form.addRow(QString(), measure);
  form.addRow(tr("&Begin at label:"), _start);
  form.addRow(tr("&Copies of each:"), _copies);
  connect(measure, &QPushButton::clicked, this, &SheetFields::measure);
}

void SheetFields::fillSheets(const QString& chosen) {
  _sheet->clear();
  for (const QList<LabelSheet>& sheets : {_own, LabelSheet::all()}) {
    for (const LabelSheet& sheet : sheets) {
      _sheet->addItem(sheet.title(), sheet.name);
      if (!sheet.otherNumbers.isEmpty()) {
        _sheet->setItemData(_sheet->count() - 1, sheet.otherNumbers.join(QStringLiteral(", ")),
                            Qt::ToolTipRole);
      }
    }
  }
  _sheet->setCurrentIndex(std::max(0, _sheet->findData(chosen)));
  _sheet->lineEdit()->setCursorPosition(0);
}

LabelSheet SheetFields::sheet() const {
  return LabelSheet::named(_sheet->currentData().toString(), _own);
}

// A product number is enough, and one that nobody knows changes nothing.
void SheetFields::sheetTyped() {
  const QString number = _sheet->currentText().trimmed();
  if (number != _sheet->itemText(_sheet->currentIndex())) {
    const LabelSheet named = LabelSheet::named(number, _own);
    const bool isKnown = named.name == number || named.otherNumbers.contains(number);
    const int index = isKnown ? _sheet->findData(named.name) : _sheet->findText(number);
    _sheet->setCurrentIndex(index >= 0 ? index : _sheet->currentIndex());
    _sheet->setEditText(_sheet->itemText(_sheet->currentIndex()));
  }
}

void SheetFields::sheetChosen() {
  _sheet->lineEdit()->setCursorPosition(0);  // the number is what tells sheets apart
  _start->setMaximum(sheet().size());
  emit changed();
}

void SheetFields::measure() {
  SheetDialog dialog(sheet(), _own, this);
  if (dialog.exec() != QDialog::Accepted) {
    return;
  }
  _own = dialog.sheets();
  {
    const QSignalBlocker quiet(_sheet);
    fillSheets(dialog.chosen());
  }
  sheetChosen();
}

void SheetFields::showRefused() {
  const int refused = labels().refused;
  _refused->setVisible(refused > 0);
  _refused->setText(tr("&Also %n labels whose address was refused", nullptr, refused));
}

void SheetFields::read(PrintSettings& settings) const {
  settings.ownSheets = _own;
  settings.sheet = sheet();
  settings.isByZip = _byZip->isChecked();
}

const PrintableLabels& SheetFields::labels() const {
  return _which->currentIndex() == 0 ? _shown : _selected;
}

bool SheetFields::includesRefused() const {
  return _refused->isChecked() && labels().refused > 0;
}

void SheetFields::leaveOutRefused() {
  _refused->setChecked(false);
}

int SheetFields::start() const {
  return _start->value() - 1;
}

void SheetFields::setStart(int start) {
  _start->setValue(start + 1);
}

int SheetFields::copies() const {
  return _copies->value();
}

}  // namespace postwright::addressbook
