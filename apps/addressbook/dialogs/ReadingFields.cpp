#include "apps/addressbook/dialogs/ReadingFields.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QSpinBox>
#include <algorithm>

#include "apps/tables/CsvReader.h"

namespace postwright::addressbook {

namespace {

constexpr QByteArrayView kOfferedDelimiters = ",;\t|";
constexpr int kMostSkipped = 99;
constexpr int kFieldsARow = 2;

}  // namespace

ReadingFields::ReadingFields(const ColumnedFile& file, QWidget* parent)
    : QWidget(parent), _encodings(file.encodings()) {
  auto* const layout = new QGridLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  _sheet = new QComboBox(this);
  _sheet->setObjectName(QStringLiteral("sheet"));
  _sheet->addItems(file.sheets());
  _encoding = new QComboBox(this);
  _encoding->setObjectName(QStringLiteral("encoding"));
  _encoding->addItems({tr("UTF-8"), tr("UTF-16"), tr("Western (Windows-1252)"), tr("Mac Roman")});
  _delimiter = new QComboBox(this);
  _delimiter->setObjectName(QStringLiteral("delimiter"));
  _delimiter->addItems(
      {tr("Comma"), tr("Semicolon"), tr("Tab"), tr("Vertical bar"), tr("Another…")});
  _otherDelimiter = new QLineEdit(this);
  _otherDelimiter->setMaxLength(1);
  _otherDelimiter->setFixedWidth(_otherDelimiter->fontMetrics().averageCharWidth() * 6);
  _otherDelimiter->setAccessibleName(tr("Another delimiter"));
  auto* const delimiters = new QWidget(this);
  delimiters->setFocusProxy(_delimiter);
  auto* const inner = new QHBoxLayout(delimiters);
  inner->setContentsMargins(0, 0, 0, 0);
  inner->addWidget(_delimiter, 1);
  inner->addWidget(_otherDelimiter);
  _skipped = new QSpinBox(this);
  _skipped->setObjectName(QStringLiteral("skipped"));
  _skipped->setMaximum(kMostSkipped);
  _header = new QCheckBox(tr("The first row &names the columns"), this);
  _header->setObjectName(QStringLiteral("header"));
  if (_sheet->count() > 0) {
    addField(layout, tr("&Sheet:"), _sheet);
  }
  if (file.isText()) {
    addField(layout, tr("&Encoding:"), _encoding);
    addField(layout, tr("Columns are se&parated by:"), delimiters);
  }
  addField(layout, tr("Rows to s&kip above:"), _skipped);
  addField(layout, QString(), _header);
  for (QWidget* const field : {static_cast<QWidget*>(_sheet), static_cast<QWidget*>(_encoding),
                               static_cast<QWidget*>(delimiters)}) {
    field->setVisible(layout->indexOf(field) >= 0);
  }
  connect(_sheet, &QComboBox::activated, this, &ReadingFields::changed);
  connect(_encoding, &QComboBox::activated, this, &ReadingFields::changed);
  connect(_delimiter, &QComboBox::activated, this, &ReadingFields::delimiterChanged);
  connect(_otherDelimiter, &QLineEdit::textEdited, this, &ReadingFields::changed);
  connect(_skipped, &QSpinBox::valueChanged, this, &ReadingFields::changed);
  connect(_header, &QCheckBox::toggled, this, &ReadingFields::changed);
}

// Fields are laid out two by two, so that a small screen has room for them.
void ReadingFields::addField(QGridLayout* layout, const QString& caption, QWidget* field) {
  const int place = layout->property("fields").toInt();
  layout->setProperty("fields", place + 1);
  const int row = place / kFieldsARow;
  const int column = place % kFieldsARow * 2;
  if (caption.isEmpty()) {
    layout->addWidget(field, row, column, 1, 2);
    return;
  }
  auto* const label = new QLabel(caption, this);
  label->setBuddy(field);
  layout->addWidget(label, row, column);
  layout->addWidget(field, row, column + 1);
  layout->setColumnStretch(column + 1, 1);
}

void ReadingFields::setChoice(const tables::TableChoice& choice) {
  const QSignalBlocker quiet(this);
  _sheet->setCurrentIndex(choice.sheet);
  _encoding->setCurrentIndex(static_cast<int>(_encodings.indexOf(choice.encoding)));
  const qsizetype offered = kOfferedDelimiters.indexOf(choice.delimiter);
  const bool isOffered = offered >= 0;
  _delimiter->setCurrentIndex(static_cast<int>(isOffered ? offered : kOfferedDelimiters.size()));
  _otherDelimiter->setText(isOffered ? QString() : QString(QLatin1Char(choice.delimiter)));
  _otherDelimiter->setVisible(!isOffered);
  _skipped->setValue(choice.skippedRows);
  _header->setChecked(choice.hasHeader);
}

bool ReadingFields::read(tables::TableChoice& choice) const {
  const int offered = _delimiter->currentIndex();
  const bool isOther = offered >= kOfferedDelimiters.size();
  const char delimiter =
      isOther ? _otherDelimiter->text().leftJustified(1, QLatin1Char('"')).at(0).toLatin1()
              : kOfferedDelimiters[offered];
  if (!tables::CsvReader::isDelimiter(delimiter)) {
    return false;
  }
  choice.delimiter = delimiter;
  choice.sheet = std::max(_sheet->currentIndex(), 0);
  choice.encoding = _encodings.value(_encoding->currentIndex(), choice.encoding);
  choice.skippedRows = _skipped->value();
  choice.hasHeader = _header->isChecked();
  return true;
}

void ReadingFields::delimiterChanged() {
  const bool isOther = _delimiter->currentIndex() >= kOfferedDelimiters.size();
  _otherDelimiter->setVisible(isOther);
  if (isOther) {
    _otherDelimiter->setFocus();
  }
  emit changed();
}

}  // namespace postwright::addressbook
