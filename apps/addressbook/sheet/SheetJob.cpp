#include "apps/addressbook/sheet/SheetJob.h"

#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QSaveFile>

#include "apps/tables/FileError.h"

namespace postwright::addressbook {

namespace {

constexpr int kPdfResolution = 1200;
constexpr double kOutlineWidth = 0.005;

QPageLayout letterWithoutMargins() {
  return {QPageSize(QPageSize::Letter), QPageLayout::Portrait, QMarginsF(), QPageLayout::Inch};
}

[[noreturn]] void failPrinting() {
  throw tables::FileError(
      LabelSheet::tr("The printer does not take the sheets. See whether it is switched "
                     "on, or save them as a PDF."));
}

}  // namespace

int SheetJob::pages() const {
  const int places = start + static_cast<int>(labels.size());
  return (places + sheet.size() - 1) / sheet.size();
}

void SheetJob::paintPage(QPainter& painter, int page) const {
  for (int place = 0; place < sheet.size(); ++place) {
    const QRectF area = sheet.place(place).translated(shift);
    const int label = page * sheet.size() + place - start;
    if (hasOutlines) {
      painter.setPen(QPen(Qt::lightGray, kOutlineWidth));
      painter.drawRect(area);
    }
    if (label >= 0 && label < labels.size()) {
      painter.setPen(Qt::black);
      drawLabel(painter, area.topLeft(), fitLabel(labels[label], area.size(), style), style);
    }
  }
}

bool SheetJob::writePdf(const QString& path, const Progress& progress) const {
  QSaveFile file(path);
  const auto fail = [&file] {
    throw tables::FileError(
        LabelSheet::tr("The PDF could not be written: %1. Free some space or save under "
                       "another name.")
            .arg(file.errorString()));
  };
  if (!file.open(QIODevice::WriteOnly)) {
    fail();
  }
  bool isWhole = false;
  {
    QPdfWriter writer(&file);
    writer.setResolution(kPdfResolution);
    writer.setTitle(LabelSheet::tr("Address labels"));
    writer.setPageLayout(letterWithoutMargins());
    isWhole = paintPages(writer, progress);
  }  // the writer ends the file
  if (!isWhole) {
    file.cancelWriting();
    return false;
  }
  if (!file.commit()) {
    fail();
  }
  return true;
}

bool SheetJob::print(QPrinter& printer, const Progress& progress) const {
  printer.setFullPage(true);
  printer.setPageLayout(letterWithoutMargins());
  return paintPages(printer, progress);
}

bool SheetJob::paintPages(QPagedPaintDevice& device, const Progress& progress) const {
  QPainter painter;
  if (!painter.begin(&device)) {
    failPrinting();
  }
  for (int page = 0; page < pages(); ++page) {
    if (progress && !progress(page)) {
      return false;
    }
    if (page > 0 && !device.newPage()) {
      failPrinting();
    }
    painter.resetTransform();
    painter.scale(device.logicalDpiX(), device.logicalDpiY());
    paintPage(painter, page);
  }
  return true;
}

}  // namespace postwright::addressbook
