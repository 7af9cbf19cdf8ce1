#include "apps/addressbook/sheet/LabelFace.h"

#include <QPainter>
#include <algorithm>

#include "apps/addressbook/sheet/MailBarcode.h"

namespace postwright::addressbook {

namespace {

constexpr double kBarcodeGap = 0.06;   // inches from the bars to the address
constexpr double kSenderPoints = 9;    // a return address is smaller than the address
constexpr double kPictureShare = 0.4;  // of the room for the sender, at most
constexpr double kPictureGap = 0.06;

}  // namespace

bool hasRoomForBarcode(const LabelSheet& sheet) {
  const QRectF area = sheet.addressArea(false);
  return area.left() >= kClearBeside && area.top() >= kClearAbove &&
         area.left() + kBarcodeLength + kClearBeside <= sheet.label.width();
}

LabelFace layOut(const LabelSheet& sheet, const QString& address, const QString& bars,
                 const Sender& sender, const LabelStyle& style) {
  LabelFace face;
  QRectF room = sheet.senderArea();
  const bool hasSender = !sender.isEmpty() && !room.isEmpty();
  if (hasSender && !sender.picture.isNull()) {
    const QSizeF size =
        QSizeF(sender.picture.size())
            .scaled(room.width() * kPictureShare, room.height(), Qt::KeepAspectRatio);
    face.picture = QRectF(room.topLeft(), size);
    room.setLeft(face.picture.right() + kPictureGap);
  }
  if (hasSender && !sender.address.isEmpty()) {
    LabelStyle small = style;
    small.largestPoints = std::min(style.largestPoints, kSenderPoints);
    face.sender = fitLabel(sender.address, room, small);
  }
  QRectF area = sheet.addressArea(hasSender);
  double headroom = 0;
  if (!bars.isEmpty() && hasRoomForBarcode(sheet)) {
    face.bars = bars;
    headroom = kBarHeight + kBarcodeGap;
    // Below a return address the block moves to the left until the bars have their clear zone.
    area.setLeft(std::min(area.left(), sheet.label.width() - kBarcodeLength - kClearBeside));
  }
  face.address = fitLabel(address, area, style, headroom);
  face.barcode = {area.left(), face.address.top - headroom};
  return face;
}

void drawFace(QPainter& painter, const QRectF& label, const LabelFace& face, const Sender& sender,
              const LabelStyle& style) {
  painter.save();
  painter.setClipRect(label);
  painter.setPen(Qt::black);
  const QPointF corner = label.topLeft();
  if (!face.picture.isEmpty()) {
    painter.drawImage(face.picture.translated(corner), sender.picture);
  }
  drawLabel(painter, corner, face.sender, style);
  drawBars(painter, corner + face.barcode, face.bars);
  drawLabel(painter, corner, face.address, style);
  painter.restore();
}

}  // namespace postwright::addressbook
