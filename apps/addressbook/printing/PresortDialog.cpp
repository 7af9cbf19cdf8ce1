#include "apps/addressbook/printing/PresortDialog.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QPagedPaintDevice>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QTableWidget>
#include <QTextDocument>
#include <QVBoxLayout>
#include <utility>

#include "apps/addressbook/sheet/PdfFile.h"
#include "apps/addressbook/widgets/Question.h"
#include "apps/addressbook/widgets/ScrollingForm.h"
#include "apps/tables/FileError.h"

namespace postwright::addressbook {

namespace {

constexpr QSize kSize(360, 480);
constexpr int kMargin = 20;  // millimetres

}  // namespace

PresortDialog::PresortDialog(QList<Presort::Count> counts, Paper paper, QWidget* parent)
    : QDialog(parent), _counts(std::move(counts)) {
  _sheet.paper = isMetric(paper) ? Paper::A4 : Paper::Letter;
  setWindowTitle(tr("Presort Sheet"));
  int pieces = 0;
  for (const Presort::Count& count : _counts) {
    pieces += count.pieces;
  }
  auto* const lead = new QLabel(
      tr("%n pieces, by the first three digits of their ZIP codes.", nullptr, pieces), this);
  lead->setWordWrap(true);
  auto* const buttons = new QDialogButtonBox(this);
  QPushButton* const print = buttons->addButton(tr("&Print…"), QDialogButtonBox::ActionRole);
  QPushButton* const save = buttons->addButton(tr("Save as P&DF…"), QDialogButtonBox::ActionRole);
  QPushButton* const close = buttons->addButton(tr("&Close"), QDialogButtonBox::RejectRole);
  close->setDefault(true);
  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(lead);
  layout->addWidget(buildTable(), 1);
  layout->addWidget(buttons);
  connect(print, &QPushButton::clicked, this, &PresortDialog::print);
  connect(save, &QPushButton::clicked, this, &PresortDialog::savePdf);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  resizeToScreen(*this, kSize);
}

QWidget* PresortDialog::buildTable() {
  auto* const table = new QTableWidget(static_cast<int>(_counts.size()), 2, this);
  table->setObjectName(QStringLiteral("prefixes"));
  table->setAccessibleName(tr("Pieces by prefix"));
  table->setHorizontalHeaderLabels({tr("Prefix"), tr("Pieces")});
  table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
  table->verticalHeader()->hide();
  table->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table->setSelectionBehavior(QAbstractItemView::SelectRows);
  table->setTabKeyNavigation(false);
  for (int row = 0; row < _counts.size(); ++row) {
    const Presort::Count& count = _counts[row];
    table->setItem(row, 0,
                   new QTableWidgetItem(count.prefix.isEmpty() ? tr("No ZIP code") : count.prefix));
    auto* const pieces = new QTableWidgetItem(QString::number(count.pieces));
    pieces->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    table->setItem(row, 1, pieces);
  }
  return table;
}

void PresortDialog::print() {
  QPrinter printer(QPrinter::HighResolution);
  QPrintDialog dialog(&printer, this);
  if (dialog.exec() == QDialog::Accepted) {
    QTextDocument document;
    document.setHtml(Presort::page(_counts));
    document.print(&printer);
  }
}

void PresortDialog::savePdf() {
  const QString path = QFileDialog::getSaveFileName(this, tr("Save the presort sheet"),
                                                    tr("Presort.pdf"), tr("PDF file (*.pdf)"));
  if (!path.isEmpty()) {
    savePdfTo(QFileInfo(path).suffix().isEmpty() ? path + QStringLiteral(".pdf") : path);
  }
}

void PresortDialog::savePdfTo(const QString& path) {
  QPageLayout pages = _sheet.pageLayout();
  pages.setUnits(QPageLayout::Millimeter);
  pages.setMargins({kMargin, kMargin, kMargin, kMargin});
  try {
    writePdfFile(path, windowTitle(), pages, [this](QPagedPaintDevice& device) {
      QTextDocument document;
      document.setHtml(Presort::page(_counts));
      document.print(&device);
      return true;
    });
  } catch (const tables::FileError& error) {
    Question question(this, tr("The sheet cannot be saved."), error.message());
    question.addWayOut(tr("Close"));
    question.ask();
  }
}

}  // namespace postwright::addressbook
