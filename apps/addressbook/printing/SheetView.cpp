#include "apps/addressbook/printing/SheetView.h"

#include <QKeyEvent>
#include <QPainter>
#include <algorithm>

namespace postwright::addressbook {

namespace {

constexpr int kShadow = 3;
constexpr double kPixelsPerInch = 44;
constexpr double kFocusWidth = 0.04;  // inches

}  // namespace

SheetView::SheetView(QWidget* parent) : QWidget(parent), _job{LabelSheet::all().first(), {}} {
  setObjectName(QStringLiteral("sheetView"));
  setFocusPolicy(Qt::StrongFocus);
  setAccessibleName(tr("Sheet of labels"));
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void SheetView::show(const SheetJob& job, int page) {
  _job = job;
  _page = page;
  setAccessibleDescription(tr("The first label is printed in place %1 of %2")
                               .arg(_job.start + 1)
                               .arg(_job.sheet.size()));
  update();
}

QSize SheetView::sizeHint() const {
  return (_job.sheet.paperSize() * kPixelsPerInch).toSize();
}

double SheetView::scale() const {
  const QSizeF paper = _job.sheet.paperSize();
  return std::min((width() - 2 * kShadow) / paper.width(),
                  (height() - 2 * kShadow) / paper.height());
}

QPointF SheetView::corner() const {
  const QSizeF paper = _job.sheet.paperSize() * scale();
  return {(width() - paper.width()) / 2, (height() - paper.height()) / 2};
}

void SheetView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(corner());
  painter.scale(scale(), scale());
  const double pixel = 1 / scale();
  painter.fillRect(QRectF(QPointF(pixel, pixel) * kShadow, _job.sheet.paperSize()),
                   palette().color(QPalette::Mid));
  painter.fillRect(QRectF(QPointF(), _job.sheet.paperSize()), Qt::white);
  for (int place = 0; place < _job.sheet.size(); ++place) {
    const QRectF area = _job.sheet.place(place);
    painter.setPen(QPen(Qt::lightGray, pixel));
    painter.setBrush(_page == 0 && place < _job.start ? QBrush(Qt::gray, Qt::BDiagPattern)
                                                      : QBrush(Qt::NoBrush));
    painter.drawRect(area);
  }
  painter.setBrush(Qt::NoBrush);
  SheetJob job = _job;
  job.hasOutlines = false;
  job.paintPage(painter, _page);
  paintMisfits(painter);
  if (_page == 0 && hasFocus()) {
    painter.setPen(QPen(palette().color(QPalette::Highlight), kFocusWidth));
    painter.drawRect(_job.sheet.place(_job.start));
  }
}

void SheetView::paintMisfits(QPainter& painter) const {
  painter.setPen(QPen(Qt::red, kFocusWidth));
  for (int place = 0; place < _job.sheet.size(); ++place) {
    const int piece = _page * _job.sheet.size() + place - _job.start;
    if (piece >= 0 && piece < _job.pieces() && !_job.face(piece).fits()) {
      painter.drawRect(_job.sheet.place(place));
    }
  }
}

void SheetView::mousePressEvent(QMouseEvent* event) {
  const QPointF inches = (event->position() - corner()) / scale();
  for (int place = 0; place < _job.sheet.size(); ++place) {
    if (_job.sheet.place(place).contains(inches)) {
      choose(place);
    }
  }
}

void SheetView::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Left:
      return choose(_job.start - 1);
    case Qt::Key_Right:
      return choose(_job.start + 1);
    case Qt::Key_Up:
      return choose(_job.start - _job.sheet.columns);
    case Qt::Key_Down:
      return choose(_job.start + _job.sheet.columns);
    case Qt::Key_Home:
      return choose(0);
    default:
      QWidget::keyPressEvent(event);
  }
}

void SheetView::choose(int start) {
  if (_page == 0 && start >= 0 && start < _job.sheet.size() && start != _job.start) {
    emit startChosen(start);
  }
}

}  // namespace postwright::addressbook
