#include "client/batch/TurningColumns.h"

#include <QStyle>
#include <QWidget>
#include <algorithm>

namespace postwright {

bool TurningColumns::fitsSideBySide(int width) const {
  return count() * (minimumSize().width() + spacing()) - spacing() <= width;
}

int TurningColumns::widthOfEach(int width) const {
  return fitsSideBySide(width) ? (width + spacing()) / count() - spacing() : width;
}

int TurningColumns::leastHeight(int column, int width) const {
  const QLayoutItem* item = itemAt(column);
  return item->hasHeightForWidth() ? item->minimumHeightForWidth(width)
                                   : item->minimumSize().height();
}

int TurningColumns::minimumHeightForWidth(int width) const {
  const bool fits = fitsSideBySide(width);
  int height = 0;
  for (int i = 0; i < count(); ++i) {
    const int own = leastHeight(i, widthOfEach(width));
    height = fits ? std::max(height, own) : height + own + (i > 0 ? spacing() : 0);
  }
  return height;
}

QSize TurningColumns::minimumSize() const {
  QSize size;
  for (int i = 0; i < count(); ++i) {
    size = size.expandedTo(itemAt(i)->minimumSize());
  }
  return size;
}

// Not as a QBoxLayout would, which gives a column less than its least height where another has a
// share in what is left.
void TurningColumns::setGeometry(const QRect& room) {
  QLayout::setGeometry(room);  // NOLINT(bugprone-parent-virtual-call): see above
  const bool fits = fitsSideBySide(room.width());
  const int spare = std::max(0, room.height() - minimumHeightForWidth(room.width())) / count();
  QRect place(room.topLeft(), QSize(widthOfEach(room.width()), room.height()));
  for (int i = 0; i < count(); ++i) {
    if (!fits) {
      place.setHeight(leastHeight(i, place.width()) + spare);
    }
    itemAt(i)->setGeometry(QStyle::visualRect(parentWidget()->layoutDirection(), room, place));
    fits ? place.moveLeft(place.right() + 1 + spacing())
         : place.moveTop(place.bottom() + 1 + spacing());
  }
}

}  // namespace postwright
