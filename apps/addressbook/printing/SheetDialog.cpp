#include "apps/addressbook/printing/SheetDialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <algorithm>

#include "apps/addressbook/printing/SheetView.h"
#include "apps/addressbook/widgets/ScrollingForm.h"

namespace postwright::addressbook {

namespace {

constexpr int kMostAcross = 20;
constexpr int kMostDown = 50;
constexpr int kLongestName = 40;
constexpr QSize kSize(680, 480);
constexpr QSize kLeastView(120, 120);

}  // namespace

SheetDialog::SheetDialog(const LabelSheet& sheet, const QList<LabelSheet>& own, QWidget* parent)
    : QDialog(parent),
      _sheet(sheet),
      _own(own),
      _isOwn(std::any_of(own.begin(), own.end(),
                         [&sheet](const LabelSheet& each) { return each.name == sheet.name; })) {
  setWindowTitle(tr("Own Measures"));
  auto* const buttons = new QDialogButtonBox(this);
  _keep = buttons->addButton(tr("&Keep This Sheet"), QDialogButtonBox::AcceptRole);
  _keep->setObjectName(QStringLiteral("keepSheet"));
  if (_isOwn) {
    QPushButton* const remove =
        buttons->addButton(tr("&Remove It"), QDialogButtonBox::DestructiveRole);
    connect(remove, &QPushButton::clicked, this, &SheetDialog::removeSheet);
  }
  buttons->addButton(tr("Cancel"), QDialogButtonBox::RejectRole);
  _view = new SheetView(this);
  _view->setMinimumSize(kLeastView);
  _view->setFocusPolicy(Qt::NoFocus);
  auto* const sides = new QHBoxLayout;
  sides->addWidget(new ScrollingForm(buildFields(), this));
  sides->addWidget(_view, 1);
  _problem = new QLabel(this);
  _problem->setObjectName(QStringLiteral("sheetProblem"));
  _problem->setWordWrap(true);
  auto* const layout = new QVBoxLayout(this);
  layout->addLayout(sides, 1);
  layout->addWidget(_problem);
  layout->addWidget(buttons);
  connect(buttons, &QDialogButtonBox::accepted, this, &SheetDialog::keep);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  showMeasures(_sheet.isEnvelope() ? LabelSheet::all().first() : _sheet);
  refresh();
  resizeToScreen(*this, kSize);
}

QWidget* SheetDialog::buildFields() {
  auto* const fields = new QWidget(this);
  auto* const form = new QFormLayout(fields);
  _name = new QLineEdit(_isOwn ? _sheet.name : QString(), fields);
  _name->setObjectName(QStringLiteral("sheetName"));
  _name->setMaxLength(kLongestName);
  _name->setPlaceholderText(tr("as on the box"));
  _paper = new QComboBox(fields);
  _paper->setObjectName(QStringLiteral("paper"));
  _paper->addItems({tr("Letter, 8-1/2 x 11 in"), tr("A4, 210 x 297 mm")});
  _columns = new QSpinBox(fields);
  _columns->setObjectName(QStringLiteral("columns"));
  _columns->setRange(1, kMostAcross);
  _rows = new QSpinBox(fields);
  _rows->setObjectName(QStringLiteral("rows"));
  _rows->setRange(1, kMostDown);
  form->addRow(tr("&Name:"), _name);
  form->addRow(tr("&Paper:"), _paper);
  form->addRow(tr("Labels &across:"), _columns);
  form->addRow(tr("Labels &down:"), _rows);
  _width = addMeasure(*form, "width", tr("&Width of a label:"));
  _height = addMeasure(*form, "height", tr("&Height of a label:"));
  _left = addMeasure(*form, "left", tr("&Left margin:"));
  _top = addMeasure(*form, "top", tr("&Top margin:"));
  _across = addMeasure(*form, "across", tr("&From one to the next, across:"));
  _down = addMeasure(*form, "downStep", tr("From &one to the next, down:"));
  connect(_name, &QLineEdit::textChanged, this, &SheetDialog::refresh);
  connect(_paper, &QComboBox::currentIndexChanged, this, &SheetDialog::changePaper);
  connect(_columns, &QSpinBox::valueChanged, this, &SheetDialog::refresh);
  connect(_rows, &QSpinBox::valueChanged, this, &SheetDialog::refresh);
  return fields;
}

QDoubleSpinBox* SheetDialog::addMeasure(QFormLayout& form, const char* name,
                                        const QString& caption) {
  auto* const field = new QDoubleSpinBox(this);
  field->setObjectName(QLatin1String(name));
  form.addRow(caption, field);
  connect(field, &QDoubleSpinBox::valueChanged, this, &SheetDialog::refresh);
  return field;
}

// Inches with their fourth place, which sixteenths take; millimetres with their second.
void SheetDialog::showMeasures(const LabelSheet& sheet) {
  const bool metric = isMetric(sheet.paper);
  const double unit = metric ? kMillimetresPerInch : 1;
  const QSignalBlocker quiet[] = {QSignalBlocker(_paper), QSignalBlocker(_columns),
                                  QSignalBlocker(_rows)};
  _paper->setCurrentIndex(metric ? 1 : 0);
  _columns->setValue(sheet.columns);
  _rows->setValue(sheet.rows);
  const std::pair<QDoubleSpinBox*, double> measures[] = {
      {_width, sheet.label.width()},  {_height, sheet.label.height()},
      {_left, sheet.first.x()},       {_top, sheet.first.y()},
      {_across, sheet.pitch.width()}, {_down, sheet.pitch.height()}};
  for (const auto& [field, inches] : measures) {
    const QSignalBlocker silent(field);
    field->setDecimals(metric ? 2 : 4);
    field->setSingleStep(metric ? 0.5 : 1.0 / 16);
    field->setRange(0, sheet.paperSize().height() * unit);
    field->setSuffix(metric ? tr(" mm") : tr(" in"));
    field->setValue(inches * unit);
  }
}

// The measures stay as long as they were, in the unit of the other paper.
void SheetDialog::changePaper() {
  const int chosen = _paper->currentIndex();
  {
    const QSignalBlocker quiet(_paper);
    _paper->setCurrentIndex(1 - chosen);  // the one in whose unit the fields still are
  }
  LabelSheet sheet = entered();
  sheet.paper = chosen == 1 ? Paper::A4 : Paper::Letter;
  showMeasures(sheet);
  refresh();
}

LabelSheet SheetDialog::entered() const {
  LabelSheet sheet{
      _name->text().trimmed(), {}, _paper->currentIndex() == 1 ? Paper::A4 : Paper::Letter};
  const double unit = isMetric(sheet.paper) ? kMillimetresPerInch : 1;
  sheet.columns = _columns->value();
  sheet.rows = _rows->value();
  sheet.label = QSizeF(_width->value(), _height->value()) / unit;
  sheet.first = QPointF(_left->value(), _top->value()) / unit;
  sheet.pitch = QSizeF(_across->value(), _down->value()) / unit;
  return sheet;
}

QString SheetDialog::problem() const {
  const LabelSheet sheet = entered();
  if (sheet.name.isEmpty()) {
    return tr("Give the sheet a name.");
  }
  const LabelSheet known = LabelSheet::named(sheet.name);
  if (known.name == sheet.name || known.otherNumbers.contains(sheet.name)) {
    return tr("A sheet “%1” is known already, with measures of its own.").arg(sheet.name);
  }
  return sheet.problem();
}

void SheetDialog::refresh() {
  if (_keep == nullptr || _view == nullptr || _problem == nullptr) {
    return;  // still being built
  }
  const QString problem = this->problem();
  _problem->setText(problem.isEmpty() ? tr("The labels fit on the paper.") : problem);
  _keep->setEnabled(problem.isEmpty());
  _view->show({entered(), {}}, 0);
}

void SheetDialog::keep() {
  const LabelSheet sheet = entered();
  const QString before = _isOwn ? _sheet.name : sheet.name;
  _own.removeIf(
      [&](const LabelSheet& each) { return each.name == before || each.name == sheet.name; });
  _own.append(sheet);
  _chosen = sheet.name;
  accept();
}

void SheetDialog::removeSheet() {
  _own.removeIf([this](const LabelSheet& each) { return each.name == _sheet.name; });
  _chosen = LabelSheet::all().first().name;
  accept();
}

}  // namespace postwright::addressbook
