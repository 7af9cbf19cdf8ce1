#include "client/batch/BatchSummary.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QGridLayout>
#include <QLabel>
#include <QLocale>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QSaveFile>
#include <QScrollArea>

#include "client/LocalizedString.h"
#include "client/suite/StringHelpers.h"

namespace postwright {
namespace {

QWidget* figures(const BatchResultRecordList& records) {
  constexpr int kIndent = 18;
  constexpr int kBarWidth = 180;
  auto* page = new QWidget;
  auto* grid = new QGridLayout(page);
  const QList<SummaryLine> lines = summaryLines(records);
  for (int row = 0; row < lines.size(); ++row) {
    const SummaryLine& line = lines.at(row);
    auto* text = new QLabel(line.text);
    text->setTextFormat(Qt::PlainText);
    text->setWordWrap(true);
    text->setIndent(line.part ? kIndent : 0);
    auto* count = new QLabel(QLocale().toString(line.count));
    count->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    auto* bar = new QProgressBar;
    bar->setTextVisible(false);
    bar->setMinimumWidth(kBarWidth);
    bar->setMaximum(static_cast<int>(records.size()));
    bar->setValue(static_cast<int>(line.count));
    bar->setAccessibleName(line.text);
    bar->setAccessibleDescription(StringHelpers::stringWithFormat(
        localizedString("SProgress"),
        {QLocale().toString(line.count), QLocale().toString(records.size())}));
    grid->addWidget(text, row, 0);
    grid->addWidget(count, row, 1);
    grid->addWidget(bar, row, 2);
  }
  grid->setColumnStretch(0, 1);
  grid->setRowStretch(static_cast<int>(lines.size()), 1);
  return page;
}

}  // namespace

BatchSummary::BatchSummary(const BatchResultRecordList& records, QWidget* parent)
    : QDialog(parent), _records(records) {
  setObjectName(QStringLiteral("dlgSummary"));
  setWindowTitle(localizedString("SReportTitle"));
  auto* rows = new QVBoxLayout(this);
  auto* scroll = new QScrollArea;
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setWidgetResizable(true);
  scroll->setFocusPolicy(Qt::NoFocus);
  scroll->setWidget(figures(records));
  scroll->setMinimumSize(scroll->widget()->sizeHint().boundedTo(QSize(560, 300)));
  rows->addWidget(scroll);
  auto* buttons = new QDialogButtonBox;
  QPushButton* save =
      buttons->addButton(localizedString("SSaveReport"), QDialogButtonBox::ActionRole);
  save->setObjectName(QStringLiteral("bnSaveReport"));
  QPushButton* close = buttons->addButton(localizedString("SClose"), QDialogButtonBox::RejectRole);
  save->setAutoDefault(false);
  close->setDefault(true);
  rows->addWidget(buttons);
  connect(save, &QPushButton::clicked, this, &BatchSummary::saveReport);
  connect(buttons, &QDialogButtonBox::rejected, this, &BatchSummary::reject);
}

void BatchSummary::saveReport() {
  const QString name = QFileDialog::getSaveFileName(
      this, localizedString("SSaveReportTitle"),
      localizedString("SReportName") + QStringLiteral(".csv"),
      localizedString("SReportCsv") + QStringLiteral(" (*.csv);;") +
          localizedString("SReportHtml") + QStringLiteral(" (*.html *.htm)"));
  QString error;
  if (!name.isEmpty() && !write(_records, name, error)) {
    QMessageBox::warning(
        this, windowTitle(),
        StringHelpers::stringWithFormat(localizedString("SReportFailed"), {name, error}));
  }
}

bool BatchSummary::write(const BatchResultRecordList& records, const QString& file,
                         QString& error) {
  const bool page = file.endsWith(QStringLiteral(".html"), Qt::CaseInsensitive) ||
                    file.endsWith(QStringLiteral(".htm"), Qt::CaseInsensitive);
  const QByteArray text = (page ? htmlReport(records) : csvReport(records)).toUtf8();
  QSaveFile out(file);
  if (out.open(QIODevice::WriteOnly) && out.write(text) == text.size() && out.commit()) {
    return true;
  }
  error = out.errorString();
  return false;
}

}  // namespace postwright
