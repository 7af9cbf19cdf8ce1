#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_SHEET_SHEETJOB_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_SHEET_SHEETJOB_H_

#include <QHash>
#include <QList>
#include <QPointF>
#include <QStringList>
#include <functional>
#include <optional>

#include "apps/addressbook/sheet/LabelFace.h"
#include "apps/addressbook/sheet/MailBarcode.h"

class QPagedPaintDevice;
class QPainter;
class QPrinter;

namespace postwright::addressbook {

// Labels to be printed, on sheets the first of which may have been begun before.
//
//   SheetJob job{LabelSheet::all().first(), labels};
//   job.start = 4;  // the first four labels of the sheet are used up
//   job.writePdf(path);
struct SheetJob {
  // Called before each page with the number of those that are done; false ends the printing.
  using Progress = std::function<bool(int pages)>;

  LabelSheet sheet;
  QStringList labels;
  int start = 0;   // place of the first label on the first sheet, counted from 0
  int copies = 1;  // of each label, one after the other
  LabelStyle style = {};
  QPointF shift = {};        // inches right and down, for a printer that feeds the paper askew
  bool hasOutlines = false;  // draws the edges of the labels, for a trial on plain paper
  Sender sender = {};
  // Gives a label the case and punctuation of the sheet; absent: labels are printed as they are.
  std::function<QString(const QString&)> look = {};
  QHash<QString, QString> deliveryPoints = {};  // of the labels of which they are known, two digits
  // With it, each label that has a ZIP+4 gets a barcode, the serial number counting all pieces.
  std::optional<MailCode> mail = {};

  int pieces() const { return static_cast<int>(labels.size()) * copies; }
  int pages() const;

  // What is printed on a label, `piece` counting the copies.
  LabelFace face(int piece) const;

  // Which of the labels do not fit, in the smallest type there is. Nothing where `progress`, called
  // with the number of labels looked at, ended it.
  std::optional<QList<int>> misfits(const Progress& progress = {}) const;

  // Draws a page on a painter whose unit is the inch and whose origin is the corner of the paper.
  void paintPage(QPainter& painter, int page) const;

  // Writes the pages at their true size to a PDF file, the old or the new one being there at any
  // moment. False when `progress` ended it: nothing was written. Throws FileError.
  bool writePdf(const QString& path, const Progress& progress = {}) const;

  // The same to a printer, which is set to the sheet's paper without margins. Throws FileError
  // where the printer does not begin.
  bool print(QPrinter& printer, const Progress& progress = {}) const;

 private:
  bool paintPages(QPagedPaintDevice& device, const Progress& progress) const;
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_SHEET_SHEETJOB_H_
