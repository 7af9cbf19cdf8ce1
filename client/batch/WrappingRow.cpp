#include "client/batch/WrappingRow.h"

#include <QStyle>
#include <QWidget>
#include <algorithm>

namespace postwright {
namespace {

bool takesRoom(const QLayoutItem* item) {
  return item->expandingDirections().testFlag(Qt::Horizontal);
}

bool isSpacer(QLayoutItem* item) {
  return item->spacerItem() != nullptr;
}

bool canShrink(QLayoutItem* item) {
  return item->widget() != nullptr &&
         (item->widget()->sizePolicy().horizontalPolicy() & QSizePolicy::ShrinkFlag) != 0;
}

}  // namespace

WrappingRow::WrappingRow(QWidget* parent) : QLayout(parent) {
  setContentsMargins(0, 0, 0, 0);
}

WrappingRow::~WrappingRow() {
  qDeleteAll(_items);
}

void WrappingRow::wrap(QBoxLayout& box) {
  auto* row = new WrappingRow(nullptr);
  row->setSpacing(box.spacing());
  while (QLayoutItem* item = box.takeAt(0)) {
    row->addItem(item);
  }
  box.addLayout(row);
}

QLayoutItem* WrappingRow::takeAt(int index) {
  return index >= 0 && index < count() ? _items.takeAt(index) : nullptr;
}

QList<QLayoutItem*> WrappingRow::shown() const {
  QList<QLayoutItem*> shown = _items;
  shown.removeIf([](QLayoutItem* item) { return item->isEmpty() && !isSpacer(item); });
  return shown;
}

// One that takes what there is does with little, and a spacer with nothing, not even a space of its
// own.
int WrappingRow::widthOfItem(QLayoutItem* item) const {
  return isSpacer(item)    ? -spacing()
         : takesRoom(item) ? item->minimumSize().width()
                           : item->sizeHint().width();
}

int WrappingRow::widthOf(const QList<QLayoutItem*>& row) const {
  int width = std::max(0, static_cast<int>(row.size()) - 1) * spacing();
  for (QLayoutItem* item : row) {
    width += widthOfItem(item);
  }
  return width;
}

QSize WrappingRow::sizeHint() const {
  const int width = widthOf(shown());
  return {width, heightForWidth(width)};
}

QSize WrappingRow::minimumSize() const {
  QSize size;
  for (const QLayoutItem* item : shown()) {
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
  const QList<QLayoutItem*> items = shown();
  int top = room.top();
  for (qsizetype begin = 0, end = 0; begin < items.size(); begin = end) {
    QList<QLayoutItem*> row{items.at(end++)};
    while (end < items.size() && widthOf(row + QList{items.at(end)}) <= room.width()) {
      row.append(items.at(end++));
    }
    // Where the row has a spacer, what follows it stays together at the end of the next row.
    const auto spacer = std::find_if(row.begin() + 1, row.end(), isSpacer);
    if (end < items.size() && spacer != row.end()) {
      end -= row.end() - spacer;
      row.erase(spacer, row.end());
    }
    int height = 0;
    for (const QLayoutItem* item : row) {
      height = std::max(height, item->sizeHint().height());
    }
    if (place) {
      placeRow(row, QRect(room.left(), top, room.width(), height));
    }
    top += height + spacing();
  }
  return std::max(0, top - spacing() - room.top());
}

void WrappingRow::placeRow(const QList<QLayoutItem*>& row, const QRect& room) const {
  const auto found = std::find_if(row.begin(), row.end(), takesRoom);
  const bool isAlone = row.size() == 1 && canShrink(row.first());
  const QLayoutItem* wide = isAlone ? row.first() : found != row.end() ? *found : nullptr;
  const int spare = room.width() - widthOf(row);
  const Qt::LayoutDirection direction =
      parentWidget() != nullptr ? parentWidget()->layoutDirection() : Qt::LeftToRight;
  int left = room.left();
  for (QLayoutItem* item : row) {
    const int width = widthOfItem(item) + (item == wide ? spare : 0);
    left += wide == nullptr && item == row.last() ? spare : 0;
    item->setGeometry(
        QStyle::visualRect(direction, room, QRect(left, room.top(), width, room.height())));
    left += width + spacing();
  }
}

}  // namespace postwright
