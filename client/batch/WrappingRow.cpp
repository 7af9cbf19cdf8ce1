#include "client/batch/WrappingRow.h"

#include <QStyle>
#include <QWidget>
#include <algorithm>

namespace postwright {

WrappingRow::WrappingRow(QWidget* parent) : QLayout(parent) {
  setContentsMargins(0, 0, 0, 0);
}

WrappingRow::~WrappingRow() {
  qDeleteAll(_items);
}

QLayoutItem* WrappingRow::takeAt(int index) {
  return index >= 0 && index < count() ? _items.takeAt(index) : nullptr;
}

int WrappingRow::widthOfAll() const {
  int width = std::max(0, count() - 1) * spacing();
  for (const QLayoutItem* item : _items) {
    width += item->sizeHint().width();
  }
  return width;
}

QSize WrappingRow::sizeHint() const {
  return {widthOfAll(), heightForWidth(widthOfAll())};
}

QSize WrappingRow::minimumSize() const {
  QSize size;
  for (const QLayoutItem* item : _items) {
    size = size.expandedTo(item->minimumSize());
  }
  return size;
}

void WrappingRow::setGeometry(const QRect& room) {
  QLayout::setGeometry(room);
  layOut(room, true);
}

// Returns the height.
int WrappingRow::layOut(const QRect& room, bool place) const {
  if (widthOfAll() > room.width()) {
    int top = room.top();
    for (QLayoutItem* item : _items) {
      const int height = item->sizeHint().height();
      if (place) {
        item->setGeometry(QRect(room.left(), top, room.width(), height));
      }
      top += height + spacing();
    }
    return std::max(0, top - spacing() - room.top());
  }
  int height = 0;
  for (const QLayoutItem* item : _items) {
    height = std::max(height, item->sizeHint().height());
  }
  int left = room.left();
  for (QLayoutItem* item : _items) {
    const int width = item->sizeHint().width();
    const bool last = item == _items.last() && count() > 1;
    const QRect own(last ? room.right() + 1 - width : left, room.top(), width, height);
    if (place) {
      const Qt::LayoutDirection direction =
          parentWidget() != nullptr ? parentWidget()->layoutDirection() : Qt::LeftToRight;
      item->setGeometry(QStyle::visualRect(direction, room, own));
    }
    left += width + spacing();
  }
  return height;
}

}  // namespace postwright
