#include "apps/addressbook/dialogs/PrintDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPrintDialog>
#include <QPrinter>
#include <QProgressDialog>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

#include "apps/addressbook/dialogs/SheetView.h"
#include "apps/addressbook/widgets/Question.h"
#include "apps/tables/FileError.h"

namespace postwright::addressbook {

namespace {

constexpr double kMostShift = 0.5;
constexpr QSize kSize(840, 640);
constexpr int kPatience = 500;  // milliseconds until progress is shown

}  // namespace

PrintDialog::PrintDialog(const PrintableLabels& labels, const Preferences& preferences,
                         QWidget* parent)
    : QDialog(parent), _labels(labels), _preferences(preferences) {
  setWindowTitle(tr("Print Labels"));
  auto* const buttons = new QDialogButtonBox(this);
  QPushButton* const print = buttons->addButton(tr("&Print…"), QDialogButtonBox::ActionRole);
  QPushButton* const save = buttons->addButton(tr("Save as P&DF…"), QDialogButtonBox::ActionRole);
  save->setObjectName(QStringLiteral("savePdf"));
  buttons->addButton(tr("Cancel"), QDialogButtonBox::RejectRole);
  print->setDefault(true);
  auto* const sides = new QHBoxLayout;
  sides->addLayout(buildFields());
  sides->addWidget(buildPages(), 1);
  auto* const layout = new QVBoxLayout(this);
  layout->addLayout(sides, 1);
  layout->addWidget(buttons);
  connect(print, &QPushButton::clicked, this, &PrintDialog::print);
  connect(save, &QPushButton::clicked, this, &PrintDialog::savePdf);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  refresh();
  resize(kSize);
}

QFormLayout* PrintDialog::buildFields() {
  _which = new QComboBox(this);
  _which->addItem(tr("All shown (%1)").arg(_labels.shown.size()));
  if (!_labels.selected.isEmpty()) {
    _which->addItem(tr("The selected ones (%1)").arg(_labels.selected.size()));
  }
  _which->setCurrentIndex(_labels.selected.size() > 1 ? 1 : 0);
  _sheet = new QComboBox(this);
  _sheet->setObjectName(QStringLiteral("sheet"));
  for (const LabelSheet& sheet : LabelSheet::all()) {
    _sheet->addItem(sheet.title(), QString::fromLatin1(sheet.name));
  }
  _sheet->setCurrentIndex(_sheet->findData(QString::fromLatin1(_preferences.sheet.name)));
  _start = new QSpinBox(this);
  _start->setObjectName(QStringLiteral("start"));
  _start->setMinimum(1);
  _family = new QFontComboBox(this);
  _family->setEditable(false);
  _family->setCurrentFont(QFont(_preferences.style.family));
  _points = new QDoubleSpinBox(this);
  _points->setRange(LabelStyle::kLeastPoints, LabelStyle::kMostPoints);
  _points->setDecimals(1);
  _points->setSuffix(tr(" pt"));
  _points->setValue(_preferences.style.largestPoints);
  _outlines = new QCheckBox(tr("Print the &edges, for a trial on plain paper"), this);
  auto* const form = new QFormLayout;
  form->addRow(tr("&Labels:"), _which);
  form->addRow(tr("&Sheet:"), _sheet);
  form->addRow(tr("&Begin at label:"), _start);
  form->addRow(tr("&Typeface:"), _family);
  form->addRow(tr("Largest si&ze:"), _points);
  addShiftFields(form);
  form->addRow(_outlines);
  connect(_which, &QComboBox::currentIndexChanged, this, &PrintDialog::refresh);
  connect(_sheet, &QComboBox::currentIndexChanged, this, &PrintDialog::refresh);
  connect(_start, &QSpinBox::valueChanged, this, &PrintDialog::refresh);
  connect(_family, &QFontComboBox::currentFontChanged, this, &PrintDialog::refresh);
  connect(_points, &QDoubleSpinBox::valueChanged, this, &PrintDialog::refresh);
  return form;
}

void PrintDialog::addShiftFields(QFormLayout* form) {
  _right = makeInches("right", _preferences.shift.x());
  _down = makeInches("down", _preferences.shift.y());
  form->addRow(tr("Move &right:"), _right);
  form->addRow(tr("Move do&wn:"), _down);
  const QString hint = tr("For a printer that does not feed the sheets quite straight");
  _right->setToolTip(hint);
  _down->setToolTip(hint);
}

QDoubleSpinBox* PrintDialog::makeInches(const char* name, double value) {
  auto* const field = new QDoubleSpinBox(this);
  field->setObjectName(QLatin1String(name));
  field->setRange(-kMostShift, kMostShift);
  field->setSingleStep(0.01);
  field->setDecimals(2);
  field->setSuffix(tr(" in"));
  field->setValue(value);
  connect(field, &QDoubleSpinBox::valueChanged, this, &PrintDialog::refresh);
  return field;
}

QWidget* PrintDialog::buildPages() {
  auto* const side = new QWidget(this);
  _view = new SheetView(side);
  _pageText = new QLabel(side);
  _previous = new QToolButton(side);
  _previous->setArrowType(Qt::LeftArrow);
  _previous->setAccessibleName(tr("Previous page"));
  _next = new QToolButton(side);
  _next->setArrowType(Qt::RightArrow);
  _next->setAccessibleName(tr("Next page"));
  auto* const steps = new QHBoxLayout;
  steps->addStretch(1);
  steps->addWidget(_previous);
  steps->addWidget(_pageText);
  steps->addWidget(_next);
  steps->addStretch(1);
  auto* const layout = new QVBoxLayout(side);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(_view, 1);
  layout->addLayout(steps);
  connect(_view, &SheetView::startChosen, this, [this](int start) { _start->setValue(start + 1); });
  connect(_previous, &QToolButton::clicked, this, [this] {
    --_page;
    refresh();
  });
  connect(_next, &QToolButton::clicked, this, [this] {
    ++_page;
    refresh();
  });
  return side;
}

SheetJob PrintDialog::job() const {
  const Preferences chosen = preferences();
  SheetJob job{chosen.sheet, _which->currentIndex() == 0 ? _labels.shown : _labels.selected};
  job.start = std::min(_start->value(), job.sheet.size()) - 1;
  job.style = chosen.style;
  job.shift = chosen.shift;
  job.hasOutlines = _outlines->isChecked();
  return job;
}

Preferences PrintDialog::preferences() const {
  Preferences preferences = _preferences;
  preferences.sheet = LabelSheet::named(_sheet->currentData().toString());
  preferences.style.family = _family->currentFont().family();
  preferences.style.largestPoints = _points->value();
  preferences.shift = {_right->value(), _down->value()};
  return preferences;
}

void PrintDialog::refresh() {
  if (_next == nullptr) {
    return;  // still being built
  }
  _start->setMaximum(preferences().sheet.size());
  const SheetJob job = this->job();
  _page = std::clamp(_page, 0, job.pages() - 1);
  _pageText->setText(tr("Page %1 of %2").arg(_page + 1).arg(job.pages()));
  _previous->setEnabled(_page > 0);
  _next->setEnabled(_page + 1 < job.pages());
  _view->show(job, _page);
}

void PrintDialog::print() {
  QPrinter printer(QPrinter::HighResolution);
  QPrintDialog dialog(&printer, this);
  dialog.setOption(QAbstractPrintDialog::PrintPageRange, false);
  if (dialog.exec() == QDialog::Accepted) {
    run(tr("%n labels sent to the printer.", nullptr, static_cast<int>(job().labels.size())),
        [&](const SheetJob::Progress& progress) { return job().print(printer, progress); });
  }
}

void PrintDialog::savePdf() {
  QString path = QFileDialog::getSaveFileName(this, tr("Save the sheets"), tr("Labels.pdf"),
                                              tr("PDF file (*.pdf)"));
  if (!path.isEmpty()) {
    savePdfTo(QFileInfo(path).suffix().isEmpty() ? path + QStringLiteral(".pdf") : path);
  }
}

void PrintDialog::savePdfTo(const QString& path) {
  run(tr("Saved to “%1”.").arg(QFileInfo(path).fileName()),
      [&](const SheetJob::Progress& progress) { return job().writePdf(path, progress); });
}

void PrintDialog::run(const QString& done,
                      const std::function<bool(const SheetJob::Progress&)>& produce) {
  QProgressDialog progress(tr("Setting the labels…"), tr("Cancel"), 0, job().pages(), this);
  progress.setWindowModality(Qt::WindowModal);
  progress.setMinimumDuration(kPatience);
  try {
    const bool isWhole = produce([&progress](int pages) {
      progress.setValue(pages);
      return !progress.wasCanceled();
    });
    if (isWhole) {
      _note = done;
      accept();
    }
  } catch (const tables::FileError& error) {
    progress.reset();
    Question question(this, tr("The labels cannot be printed."), error.message());
    question.addWayOut(tr("Close"));
    question.ask();
  }
}

}  // namespace postwright::addressbook
