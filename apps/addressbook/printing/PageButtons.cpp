#include "apps/addressbook/printing/PageButtons.h"

#include <QDialog>
#include <QFileDialog>
#include <QFileInfo>
#include <QPagedPaintDevice>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QTextDocument>
#include <utility>

#include "apps/addressbook/sheet/PdfFile.h"
#include "apps/addressbook/widgets/Question.h"
#include "apps/tables/FileError.h"

namespace postwright::addressbook {

namespace {

constexpr int kMargin = 20;  // millimetres

}  // namespace

PageButtons::PageButtons(QString html, Paper paper, QString fileName, QDialog* dialog)
    : QDialogButtonBox(dialog),
      _html(std::move(html)),
      _fileName(std::move(fileName)),
      _dialog(dialog) {
  _sheet.paper = isMetric(paper) ? Paper::A4 : Paper::Letter;
  QPushButton* const print = addButton(tr("&Print…"), ActionRole);
  QPushButton* const save = addButton(tr("Save as P&DF…"), ActionRole);
  QPushButton* const close = addButton(tr("&Close"), RejectRole);
  close->setDefault(true);
  connect(print, &QPushButton::clicked, this, &PageButtons::print);
  connect(save, &QPushButton::clicked, this, &PageButtons::savePdf);
  connect(this, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
}

void PageButtons::print() {
  QPrinter printer(QPrinter::HighResolution);
  QPrintDialog dialog(&printer, _dialog);
  if (dialog.exec() == QDialog::Accepted) {
    QTextDocument document;
    document.setHtml(_html);
    document.print(&printer);
  }
}

void PageButtons::savePdf() {
  const QString path = QFileDialog::getSaveFileName(_dialog, tr("Save as a PDF file"), _fileName,
                                                    tr("PDF file (*.pdf)"));
  if (!path.isEmpty()) {
    savePdfTo(QFileInfo(path).suffix().isEmpty() ? path + QStringLiteral(".pdf") : path);
  }
}

void PageButtons::savePdfTo(const QString& path) {
  QPageLayout pages = _sheet.pageLayout();
  pages.setUnits(QPageLayout::Millimeter);
  pages.setMargins({kMargin, kMargin, kMargin, kMargin});
  try {
    writePdfFile(path, _dialog->windowTitle(), pages, [this](QPagedPaintDevice& device) {
      QTextDocument document;
      document.setHtml(_html);
      document.print(&device);
      return true;
    });
  } catch (const tables::FileError& error) {
    Question question(_dialog, tr("The page cannot be saved."), error.message());
    question.addWayOut(tr("Close"));
    question.ask();
  }
}

}  // namespace postwright::addressbook
