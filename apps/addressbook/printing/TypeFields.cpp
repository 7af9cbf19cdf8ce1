#include "apps/addressbook/printing/TypeFields.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFontComboBox>
#include <QFormLayout>

namespace postwright::addressbook {

namespace {

constexpr double kMostShift = 0.5;
constexpr int kShortField = 12;  // letters

}  // namespace

TypeFields::TypeFields(const PrintSettings& settings, QWidget* parent)
    : QWidget(parent),
      _family(new QFontComboBox(this)),
      _points(new QDoubleSpinBox(this)),
      _outlines(new QCheckBox(tr("Print the ed&ges, for a trial on plain paper"), this)) {
  auto* const form = new QFormLayout(this);
  _family->setEditable(false);
  _family->setMinimumContentsLength(kShortField);
  _family->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  _family->setCurrentFont(QFont(settings.style.family));
  _points->setObjectName(QStringLiteral("points"));
  _points->setRange(LabelStyle::kLeastPoints, LabelStyle::kMostPoints);
  _points->setDecimals(1);
  _points->setSuffix(tr(" pt"));
  _points->setValue(settings.style.largestPoints);
  form->addRow(tr("&Typeface:"), _family);
  form->addRow(tr("Largest si&ze:"), _points);
  addLook(*form, settings);
  _right = addShift(*form, "right", tr("Move &right:"), settings.shift.x());
  _down = addShift(*form, "down", tr("Move do&wn:"), settings.shift.y());
  form->addRow(_outlines);
  connect(_family, &QFontComboBox::currentFontChanged, this, &TypeFields::changed);
  connect(_points, &QDoubleSpinBox::valueChanged, this, &TypeFields::changed);
  connect(_outlines, &QCheckBox::toggled, this, &TypeFields::changed);
}

void TypeFields::addLook(QFormLayout& form, const PrintSettings& settings) {
  _alike = new QCheckBox(tr("Write all labels &alike"), this);
  _alike->setObjectName(QStringLiteral("alike"));
  _alike->setToolTip(tr("The entries stay as they are; labels of other countries do so here, too"));
  _case = new QComboBox(this);
  _case->setObjectName(QStringLiteral("printCase"));
  _case->addItems({tr("UPPER CASE"), tr("lower case"), tr("Mixed Case")});
  _case->setCurrentIndex(static_cast<int>(settings.look.textCase));
  _punctuation = new QComboBox(this);
  _punctuation->setObjectName(QStringLiteral("printPunctuation"));
  _punctuation->addItems({tr("All of it"), tr("As the Postal Service prefers"), tr("None")});
  _punctuation->setCurrentIndex(static_cast<int>(settings.look.punctuation));
  form.addRow(_alike);
  form.addRow(tr("Letter&s:"), _case);
  form.addRow(tr("P&unctuation:"), _punctuation);
  for (QComboBox* const box : {_case, _punctuation}) {
    box->setMinimumContentsLength(kShortField);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setEnabled(settings.hasLook);
    connect(_alike, &QCheckBox::toggled, box, &QWidget::setEnabled);
    connect(box, &QComboBox::currentIndexChanged, this, &TypeFields::changed);
  }
  _alike->setChecked(settings.hasLook);
  connect(_alike, &QCheckBox::toggled, this, &TypeFields::changed);
}

QDoubleSpinBox* TypeFields::addShift(QFormLayout& form, const char* name, const QString& caption,
                                     double value) {
  auto* const field = new QDoubleSpinBox(this);
  field->setObjectName(QLatin1String(name));
  field->setRange(-kMostShift, kMostShift);
  field->setSingleStep(0.01);
  field->setDecimals(2);
  field->setSuffix(tr(" in"));
  field->setValue(value);
  field->setToolTip(tr("For a printer that does not feed the sheets quite straight"));
  form.addRow(caption, field);
  connect(field, &QDoubleSpinBox::valueChanged, this, &TypeFields::changed);
  return field;
}

void TypeFields::read(PrintSettings& settings) const {
  settings.style.family = _family->currentFont().family();
  settings.style.largestPoints = _points->value();
  settings.hasLook = _alike->isChecked();
  settings.look.textCase = static_cast<TextCase>(_case->currentIndex());
  settings.look.punctuation = static_cast<Punctuation>(_punctuation->currentIndex());
  settings.shift = {_right->value(), _down->value()};
}

bool TypeFields::hasOutlines() const {
  return _outlines->isChecked();
}

}  // namespace postwright::addressbook
