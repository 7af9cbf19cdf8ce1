#include "apps/addressbook/sheet/SheetJob.h"

#include <QPagedPaintDevice>
#include <QPainter>
#include <QPrinter>

#include "apps/addressbook/sheet/PdfFile.h"
#include "apps/tables/FileError.h"

namespace postwright::addressbook {

namespace {

constexpr double kOutlineWidth = 0.005;

[[noreturn]] void failPrinting() {
  throw tables::FileError(
      LabelSheet::tr("The printer does not take the sheets. See whether it is switched "
                     "on, or save them as a PDF."));
}

}  // namespace

int SheetJob::pages() const {
  return (start + pieces() + sheet.size() - 1) / sheet.size();
}

LabelFace SheetJob::face(int piece) const {
  const QString& label = labels[piece / copies];
  const QString routing = mail ? routingCode(label, deliveryPoints.value(label)) : QString();
  const QString bars = routing.isEmpty()
                           ? QString()
                           : barStates(mail->tracking(static_cast<quint64>(piece)), routing);
  return layOut(sheet, look ? look(label) : label, bars, sender, style);
}

std::optional<QList<int>> SheetJob::misfits(const Progress& progress) const {
  QList<int> rows;
  for (int row = 0; row < labels.size(); ++row) {
    if (progress && !progress(row)) {
      return std::nullopt;
    }
    if (!face(row * copies).fits()) {
      rows.append(row);
    }
  }
  return rows;
}

void SheetJob::paintPage(QPainter& painter, int page) const {
  for (int place = 0; place < sheet.size(); ++place) {
    const QRectF area = sheet.place(place).translated(shift);
    const int piece = page * sheet.size() + place - start;
    if (hasOutlines) {
      painter.setPen(QPen(Qt::lightGray, kOutlineWidth));
      painter.drawRect(area);
    }
    if (piece >= 0 && piece < pieces()) {
      drawFace(painter, area, face(piece), sender, style);
    }
  }
}

bool SheetJob::writePdf(const QString& path, const Progress& progress) const {
  return writePdfFile(path, LabelSheet::tr("Address labels"), sheet.pageLayout(),
                      [&](QPagedPaintDevice& device) { return paintPages(device, progress); });
}

bool SheetJob::print(QPrinter& printer, const Progress& progress) const {
  printer.setFullPage(true);
  printer.setPageLayout(sheet.pageLayout());
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
