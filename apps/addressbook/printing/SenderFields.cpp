#include "apps/addressbook/printing/SenderFields.h"

#include <QCheckBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QImageReader>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

#include "apps/tables/LabelText.h"

namespace postwright::addressbook {

namespace {

constexpr int kLines = 4;
constexpr QSize kMostPixels(1200, 1200);  // four inches at 300 to the inch

QLabel* makeHint(QWidget* parent) {
  auto* const hint = new QLabel(parent);
  hint->setTextFormat(Qt::PlainText);
  hint->setWordWrap(true);
  hint->hide();
  return hint;
}

}  // namespace

SenderFields::SenderFields(const PrintSettings& settings, QWidget* parent)
    : QWidget(parent),
      _on(new QCheckBox(tr("Print a return add&ress"), this)),
      _address(new QPlainTextEdit(settings.sender, this)),
      _path(new QLineEdit(settings.picture, this)),
      _problem(makeHint(this)),
      _room(makeHint(this)) {
  _on->setObjectName(QStringLiteral("hasSender"));
  _on->setChecked(settings.hasSender);
  _address->setObjectName(QStringLiteral("sender"));
  _address->setPlaceholderText(tr("Name\nStreet\nCity, state and ZIP code"));
  _address->setTabChangesFocus(true);
  _address->setFixedHeight(_address->fontMetrics().lineSpacing() * (kLines + 1));
  _path->setObjectName(QStringLiteral("picture"));
  _path->setPlaceholderText(tr("none"));
  _path->setClearButtonEnabled(true);
  auto* const choose = new QPushButton(tr("&Choose…"), this);
  auto* const row = new QHBoxLayout;
  row->addWidget(_path, 1);
  row->addWidget(choose);
  auto* const picture = new QLabel(tr("P&icture beside it:"), this);
  picture->setBuddy(_path);
  auto* const layout = new QFormLayout(this);
  layout->setRowWrapPolicy(QFormLayout::WrapAllRows);
  layout->addRow(_on);
  layout->addRow(tr("Return &address:"), _address);
  layout->addRow(picture, row);
  layout->addRow(_problem);
  layout->addRow(_room);
  loadPicture();
  connect(_on, &QCheckBox::toggled, this, &SenderFields::changed);
  connect(_address, &QPlainTextEdit::textChanged, this, [this] {
    _on->setChecked(true);  // who types one wants it
    emit changed();
  });
  connect(choose, &QPushButton::clicked, this, &SenderFields::choosePicture);
  connect(_path, &QLineEdit::textChanged, this, [this] {
    loadPicture();
    emit changed();
  });
}

void SenderFields::choosePicture() {
  const QString path = QFileDialog::getOpenFileName(
      this, tr("Choose a picture"), QString(), tr("Pictures (*.png *.jpg *.jpeg *.svg *.bmp)"));
  if (!path.isEmpty()) {
    _on->setChecked(true);
    _path->setText(path);
  }
}

void SenderFields::loadPicture() {
  _picture = {};
  const QString path = _path->text().trimmed();
  _problem->setVisible(!path.isEmpty());
  if (path.isEmpty()) {
    return;
  }
  QImageReader reader(path);
  reader.setAutoTransform(true);
  const QSize size = reader.size();
  if (size.isValid() && (size.width() > kMostPixels.width() ||
                         size.height() > kMostPixels.height() || reader.format() == "svg")) {
    reader.setScaledSize(size.scaled(kMostPixels, Qt::KeepAspectRatio));
  }
  _picture = reader.read();
  _problem->setVisible(_picture.isNull());
  _problem->setText(tr("The picture cannot be read: %1. Choose a PNG, JPEG or SVG file.")
                        .arg(reader.errorString()));
}

void SenderFields::read(PrintSettings& settings) const {
  settings.hasSender = _on->isChecked();
  settings.sender = tables::tidyLabel(_address->toPlainText());
  settings.picture = _path->text().trimmed();
}

Sender SenderFields::sender(const LabelSheet& sheet) const {
  if (!_on->isChecked() || sheet.senderArea().isEmpty()) {
    return {};
  }
  return {tables::tidyLabel(_address->toPlainText()), _picture};
}

void SenderFields::showRoom(const LabelSheet& sheet) {
  _room->setVisible(_on->isChecked() && sheet.senderArea().isEmpty());
  _room->setText(
      tr("Labels of this sheet have no room for a return address: it takes 3 by 1-1/2 "
         "inches."));
}

}  // namespace postwright::addressbook
