#include "apps/addressbook/widgets/LabelPreview.h"

#include <QPainter>
#include <algorithm>

namespace postwright::addressbook {

namespace {

constexpr int kInchesToPixels = 96;
constexpr double kCornerInches = 0.06;

}  // namespace

LabelPreview::LabelPreview(QWidget* parent) : QWidget(parent) {
  setAccessibleName(tr("Preview of the label"));
  QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
}

void LabelPreview::setSheet(const LabelSheet& sheet, const LabelStyle& style) {
  _sheet = sheet;
  _style = style;
  updateGeometry();
  update();
}

void LabelPreview::setLabel(const QString& label) {
  _label = label;
  setAccessibleDescription(label);
  update();
}

QSize LabelPreview::sizeHint() const {
  return (_sheet.label * kInchesToPixels).toSize();
}

QSize LabelPreview::minimumSizeHint() const {
  return sizeHint() / 2;
}

int LabelPreview::heightForWidth(int width) const {
  return qRound(width * _sheet.label.height() / _sheet.label.width());
}

// Paper is white and type black on any screen.
void LabelPreview::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QSizeF paper = _sheet.label;
  const double scale = std::min((width() - 2) / paper.width(), (height() - 2) / paper.height());
  painter.translate((width() - paper.width() * scale) / 2, 1);
  painter.scale(scale, scale);
  painter.setPen(QPen(palette().color(QPalette::Mid), 1 / scale));
  painter.setBrush(Qt::white);
  painter.drawRoundedRect(QRectF(QPointF(), paper), kCornerInches, kCornerInches);
  drawFace(painter, QRectF(QPointF(), paper), layOut(_sheet, _label, {}, {}, _style), {}, _style);
}

}  // namespace postwright::addressbook
