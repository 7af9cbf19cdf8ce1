#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_SHEET_LABELFACE_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_SHEET_LABELFACE_H_

#include <QImage>
#include <QString>

#include "apps/addressbook/sheet/LabelFit.h"
#include "apps/addressbook/sheet/LabelSheet.h"

namespace postwright::addressbook {

// Who sends: a return address and a picture beside it, either of which may be missing.
struct Sender {
  QString address = {};
  QImage picture = {};

  bool isEmpty() const { return address.isEmpty() && picture.isNull(); }
};

// All that is printed on one label.
struct LabelFace {
  FittedLabel address;
  FittedLabel sender;
  QRectF picture = {};  // inches from the corner of the label
  QString bars = {};    // of the barcode above the address
  QPointF barcode = {};

  bool fits() const { return address.fits && sender.fits; }
};

// Can a label of such a sheet bear an Intelligent Mail barcode with its clear zones?
bool hasRoomForBarcode(const LabelSheet& sheet);

// Lays a label out: the return address small in the upper left, `bars` close above the first line
// of the address. What the sheet has no room for is left out, which senderArea() and
// hasRoomForBarcode() tell beforehand.
LabelFace layOut(const LabelSheet& sheet, const QString& address, const QString& bars,
                 const Sender& sender, const LabelStyle& style);

// Draws it in black on a painter whose unit is the inch, nothing beyond the label's edges.
void drawFace(QPainter& painter, const QRectF& label, const LabelFace& face, const Sender& sender,
              const LabelStyle& style);

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_SHEET_LABELFACE_H_
