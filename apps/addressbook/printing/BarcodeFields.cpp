#include "apps/addressbook/printing/BarcodeFields.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpressionValidator>
#include <algorithm>

namespace postwright::addressbook {

namespace {

constexpr int kMostDigits = 9;

}  // namespace

BarcodeFields::BarcodeFields(const PrintSettings& settings, QWidget* parent)
    : QWidget(parent),
      _on(new QCheckBox(tr("Print an Intelligent &Mail barcode"), this)),
      _mailer(makeDigits("mailerId", settings.mail.mailer, kMostDigits)),
      _service(makeDigits("serviceType", settings.mail.service, 3)),
      _serial(makeDigits("nextSerial", QString::number(settings.mail.serial), kMostDigits)),
      _note(new QLabel(this)) {
  _on->setObjectName(QStringLiteral("hasBarcode"));
  _on->setChecked(settings.hasBarcode);
  _mailer->setPlaceholderText(tr("6 or 9 digits, from the Postal Service"));
  _service->setPlaceholderText(tr("3 digits: class and services"));
  _note->setObjectName(QStringLiteral("barcodeNote"));
  _note->setTextFormat(Qt::PlainText);
  _note->setWordWrap(true);
  auto* const form = new QFormLayout(this);
  form->setRowWrapPolicy(QFormLayout::WrapLongRows);
  form->addRow(_on);
  form->addRow(tr("Mailer &identifier:"), _mailer);
  form->addRow(tr("Ser&vice type:"), _service);
  form->addRow(tr("Next serial n&umber:"), _serial);
  form->addRow(_note);
  connect(_on, &QCheckBox::toggled, this, &BarcodeFields::changed);
}

QLineEdit* BarcodeFields::makeDigits(const char* name, const QString& text, int most) {
  auto* const field = new QLineEdit(text, this);
  field->setObjectName(QLatin1String(name));
  field->setMaxLength(most);
  field->setValidator(
      new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9]*")), field));
  connect(field, &QLineEdit::textChanged, this, &BarcodeFields::changed);
  return field;
}

void BarcodeFields::read(PrintSettings& settings) const {
  settings.hasBarcode = _on->isChecked();
  settings.mail.mailer = _mailer->text();
  settings.mail.service = _service->text();
  settings.mail.serial = _serial->text().toULongLong();
}

std::optional<MailCode> BarcodeFields::mail(const LabelSheet& sheet) const {
  PrintSettings settings;
  read(settings);
  if (!settings.hasBarcode || !settings.mail.problem().isEmpty() || !hasRoomForBarcode(sheet)) {
    return std::nullopt;
  }
  return settings.mail;
}

void BarcodeFields::setLabels(const QStringList& labels) {
  _labels = labels;
  _withZip4.reset();
}

void BarcodeFields::explain(const LabelSheet& sheet) {
  if (!_on->isChecked()) {
    _note->setText(
        tr("It tells the Postal Service who mails and where to. It takes a mailer "
           "identifier, and a ZIP+4 in the address."));
    return;
  }
  PrintSettings settings;
  read(settings);
  const QString problem = settings.mail.problem();
  if (!problem.isEmpty()) {
    _note->setText(tr("No barcode is printed. %1").arg(problem));
  } else if (!hasRoomForBarcode(sheet)) {
    _note->setText(
        tr("No barcode is printed: with the room to be left beside it, it takes a label "
           "3-1/4 inches (81 mm) wide."));
  } else {
    if (!_withZip4) {
      _withZip4 = std::count_if(_labels.begin(), _labels.end(),
                                [](const QString& label) { return !routingCode(label).isEmpty(); });
    }
    _note->setText(tr("%1 of %n labels have a ZIP+4 and get a barcode.", nullptr,
                      static_cast<int>(_labels.size()))
                       .arg(*_withZip4));
  }
}

}  // namespace postwright::addressbook
