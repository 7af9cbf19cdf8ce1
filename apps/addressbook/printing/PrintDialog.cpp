#include "apps/addressbook/printing/PrintDialog.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPrintDialog>
#include <QPrinter>
#include <QProgressDialog>
#include <QPushButton>
#include <QTabWidget>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

#include "apps/addressbook/printing/BarcodeFields.h"
#include "apps/addressbook/printing/PresortDialog.h"
#include "apps/addressbook/printing/SenderFields.h"
#include "apps/addressbook/printing/SheetFields.h"
#include "apps/addressbook/printing/SheetView.h"
#include "apps/addressbook/printing/TypeFields.h"
#include "apps/addressbook/sheet/Presort.h"
#include "apps/addressbook/widgets/Question.h"
#include "apps/addressbook/widgets/ScrollingForm.h"
#include "apps/tables/FileError.h"

namespace postwright::addressbook {

namespace {

constexpr QSize kSize(900, 640);
constexpr int kPatience = 500;       // milliseconds until progress is shown
constexpr qsizetype kMostNamed = 8;  // labels that do not fit

QString nameOf(const QString& label) {
  return label.section(QLatin1Char('\n'), 0, 0).left(60);
}

}  // namespace

PrintDialog::PrintDialog(const PrintableLabels& shown, const PrintableLabels& selected,
                         const Preferences& preferences, QWidget* parent)
    : QDialog(parent), _preferences(preferences) {
  setWindowTitle(tr("Print Labels"));
  auto* const sides = new QHBoxLayout;
  sides->addWidget(buildFields(shown, selected));
  sides->addWidget(buildPages(), 1);
  auto* const layout = new QVBoxLayout(this);
  layout->addLayout(sides, 1);
  layout->addWidget(buildButtons());
  connectFields();
  takeLabels();
  resizeToScreen(*this, kSize);
}

QWidget* PrintDialog::buildFields(const PrintableLabels& shown, const PrintableLabels& selected) {
  const PrintSettings& print = _preferences.print;
  auto* const side = new QWidget(this);
  auto* const tabs = new QTabWidget(side);
  tabs->setObjectName(QStringLiteral("tabs"));
  tabs->setUsesScrollButtons(true);
  _fields = new SheetFields(shown, selected, print);
  _type = new TypeFields(print);
  _sender = new SenderFields(print);
  _barcode = new BarcodeFields(print);
  tabs->addTab(new ScrollingForm(_fields, tabs), tr("&Labels"));
  tabs->addTab(new ScrollingForm(_type, tabs), tr("T&ype"));
  tabs->addTab(new ScrollingForm(_sender, tabs), tr("Se&nder"));
  tabs->addTab(new ScrollingForm(_barcode, tabs), tr("Barcod&e"));
  _summary = new QLabel(side);
  _summary->setObjectName(QStringLiteral("summary"));
  _summary->setTextFormat(Qt::PlainText);
  _summary->setWordWrap(true);
  auto* const layout = new QVBoxLayout(side);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(tabs, 1);
  layout->addWidget(_summary);
  return side;
}

QWidget* PrintDialog::buildPages() {
  auto* const side = new QWidget(this);
  _view = new SheetView(side);
  _pageText = new QLabel(side);
  _previous = makeStep(Qt::LeftArrow, tr("Previous page"), -1);
  _next = makeStep(Qt::RightArrow, tr("Next page"), 1);
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
  return side;
}

QToolButton* PrintDialog::makeStep(Qt::ArrowType arrow, const QString& name, int pages) {
  auto* const step = new QToolButton(this);
  step->setArrowType(arrow);
  step->setAccessibleName(name);
  connect(step, &QToolButton::clicked, this, [this, pages] {
    _page += pages;
    refresh();
  });
  return step;
}

QWidget* PrintDialog::buildButtons() {
  auto* const buttons = new QDialogButtonBox(this);
  _print = buttons->addButton(tr("&Print…"), QDialogButtonBox::ActionRole);
  _save = buttons->addButton(tr("Save as P&DF…"), QDialogButtonBox::ActionRole);
  _save->setObjectName(QStringLiteral("savePdf"));
  _presort = buttons->addButton(tr("Presort S&heet…"), QDialogButtonBox::ActionRole);
  _presort->setObjectName(QStringLiteral("presort"));
  buttons->addButton(tr("Cancel"), QDialogButtonBox::RejectRole);
  _print->setDefault(true);
  connect(_print, &QPushButton::clicked, this, &PrintDialog::print);
  connect(_save, &QPushButton::clicked, this, &PrintDialog::savePdf);
  connect(_presort, &QPushButton::clicked, this, &PrintDialog::showPresort);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  return buttons;
}

void PrintDialog::connectFields() {
  connect(_fields, &SheetFields::labelsChanged, this, &PrintDialog::takeLabels);
  connect(_fields, &SheetFields::changed, this, &PrintDialog::refresh);
  connect(_type, &TypeFields::changed, this, &PrintDialog::refresh);
  connect(_sender, &SenderFields::changed, this, &PrintDialog::refresh);
  connect(_barcode, &BarcodeFields::changed, this, &PrintDialog::refresh);
  connect(_view, &SheetView::startChosen, _fields, &SheetFields::setStart);
}

Preferences PrintDialog::preferences() const {
  Preferences preferences = _preferences;
  PrintSettings& print = preferences.print;
  _fields->read(print);
  _type->read(print);
  _sender->read(print);
  _barcode->read(print);
  if (_printed > 0) {
    print.mail.serial = (print.mail.serial + _printed) % print.mail.serials();
  }
  return preferences;
}

SheetJob PrintDialog::job() const {
  const PrintSettings chosen = preferences().print;
  SheetJob job{chosen.sheet, _labels};
  job.start = std::min(_fields->start(), job.sheet.size() - 1);
  job.copies = _fields->copies();
  job.style = chosen.style;
  job.shift = chosen.shift;
  job.hasOutlines = _type->hasOutlines();
  job.sender = _sender->sender(job.sheet);
  job.mail = _barcode->mail(job.sheet);
  job.deliveryPoints = _fields->labels().deliveryPoints;
  if (chosen.hasLook) {
    job.look = labelLook(chosen.look, _preferences.fix.spellings);
  }
  return job;
}

void PrintDialog::takeLabels() {
  _labels = _fields->labels().chosen(_fields->includesRefused());
  if (preferences().print.isByZip) {
    QStringList sorted;
    for (const int place : Presort::order(_labels)) {
      sorted.append(_labels[place]);
    }
    _labels = sorted;
  }
  _barcode->setLabels(_labels);
  refresh();
}

void PrintDialog::refresh() {
  const SheetJob job = this->job();
  _page = std::clamp(_page, 0, std::max(0, job.pages() - 1));
  _pageText->setText(tr("Page %1 of %2").arg(_page + 1).arg(job.pages()));
  _previous->setEnabled(_page > 0);
  _next->setEnabled(_page + 1 < job.pages());
  _sender->showRoom(job.sheet);
  _barcode->explain(job.sheet);
  _summary->setText(summary());
  for (QPushButton* const button : {_print, _save, _presort}) {
    button->setEnabled(!_labels.isEmpty());
  }
  _view->show(job, _page);
}

QString PrintDialog::summary() const {
  const PrintableLabels& labels = _fields->labels();
  QStringList sentences(tr("%n labels to print.", nullptr, static_cast<int>(_labels.size())));
  if (labels.refused > 0 && !_fields->includesRefused()) {
    sentences += tr("%n left out: the address was refused.", nullptr, labels.refused);
  }
  if (labels.withoutAddress > 0) {
    sentences += tr("%n left out: no address.", nullptr, labels.withoutAddress);
  }
  return sentences.join(QLatin1Char(' '));
}

bool PrintDialog::mayPrintRefused() {
  if (!_fields->includesRefused()) {
    return true;
  }
  Question question(
      this, tr("Print %n labels whose address was refused?", nullptr, _fields->labels().refused),
      tr("The service did not find these addresses. Mail to them may come back."));
  QAbstractButton* const print = question.addStep(tr("&Print Them"));
  QAbstractButton* const without = question.addStep(tr("&Leave Them Out"));
  question.addWayOut(tr("Cancel"));
  QAbstractButton* const answer = question.ask();
  if (answer == without) {
    _fields->leaveOutRefused();
  }
  return answer == print || (answer == without && !_labels.isEmpty());
}

// The job without the labels that do not fit, once the user knows which these are.
std::optional<SheetJob> PrintDialog::readyJob() {
  if (!mayPrintRefused()) {
    return std::nullopt;
  }
  SheetJob job = this->job();
  QProgressDialog progress(tr("Measuring the labels…"), tr("Cancel"), 0,
                           static_cast<int>(job.labels.size()), this);
  progress.setWindowModality(Qt::WindowModal);
  progress.setMinimumDuration(kPatience);
  const std::optional<QList<int>> misfits = job.misfits([&progress](int labels) {
    progress.setValue(labels);
    return !progress.wasCanceled();
  });
  progress.reset();
  if (!misfits || (!misfits->isEmpty() && !mayLeaveOut(job, *misfits))) {
    return std::nullopt;
  }
  for (auto misfit = misfits->rbegin(); misfit != misfits->rend(); ++misfit) {
    job.labels[*misfit] = QString();
  }
  job.labels.removeAll(QString());
  return job;
}

bool PrintDialog::mayLeaveOut(const SheetJob& job, const QList<int>& misfits) {
  QStringList names;
  for (qsizetype at = 0; at < std::min(kMostNamed, misfits.size()); ++at) {
    names.append(nameOf(job.labels[misfits[at]]));
  }
  if (misfits.size() > kMostNamed) {
    names.append(tr("and %n more", nullptr, static_cast<int>(misfits.size() - kMostNamed)));
  }
  Question question(
      this,
      tr("%n labels do not fit, even in 7-point type.", nullptr, static_cast<int>(misfits.size())),
      names.join(QLatin1Char('\n')) + QStringLiteral("\n\n") +
          tr("Choose a sheet with larger labels, or shorten them in the list."));
  const bool hasOthers = misfits.size() < job.labels.size();
  QAbstractButton* const without = hasOthers ? question.addStep(tr("&Leave Them Out")) : nullptr;
  question.addWayOut(hasOthers ? tr("Cancel") : tr("Close"));
  QAbstractButton* const answer = question.ask();
  return without != nullptr && answer == without;
}

void PrintDialog::print() {
  const std::optional<SheetJob> job = readyJob();
  if (!job) {
    return;
  }
  QPrinter printer(QPrinter::HighResolution);
  printer.setPageLayout(job->sheet.pageLayout());
  QPrintDialog dialog(&printer, this);
  dialog.setOption(QAbstractPrintDialog::PrintPageRange, false);
  if (dialog.exec() == QDialog::Accepted) {
    run(*job, tr("%n labels sent to the printer.", nullptr, job->pieces()),
        [&](const SheetJob::Progress& progress) { return job->print(printer, progress); });
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
  const std::optional<SheetJob> job = readyJob();
  if (job) {
    run(*job,
        tr("%n labels saved to “%1”.", nullptr, job->pieces()).arg(QFileInfo(path).fileName()),
        [&](const SheetJob::Progress& progress) { return job->writePdf(path, progress); });
  }
}

void PrintDialog::showPresort() {
  PresortDialog(Presort::count(_labels, _fields->copies()), preferences().print.sheet.paper, this)
      .exec();
}

void PrintDialog::run(const SheetJob& job, const QString& done,
                      const std::function<bool(const SheetJob::Progress&)>& produce) {
  QProgressDialog progress(tr("Setting the labels…"), tr("Cancel"), 0, job.pages(), this);
  progress.setWindowModality(Qt::WindowModal);
  progress.setMinimumDuration(kPatience);
  try {
    const bool isWhole = produce([&progress](int pages) {
      progress.setValue(pages);
      return !progress.wasCanceled();
    });
    if (isWhole) {
      _printed = job.mail ? static_cast<quint64>(job.pieces()) : 0;
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
