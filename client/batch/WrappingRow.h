#ifndef POSTWRIGHT_CLIENT_BATCH_WRAPPINGROW_H_
#define POSTWRIGHT_CLIENT_BATCH_WRAPPINGROW_H_

#include <QBoxLayout>
#include <QList>

namespace postwright {

// Lays its items out side by side and goes on in another row where they do not fit, so that a row
// of controls does not keep a window wide. The room that a row has left goes to the item that takes
// any, such as a spacer, else in front of the last one. What is after a spacer stays together.
// Items that are hidden take none.
class WrappingRow final : public QLayout {
  Q_OBJECT

 public:
  explicit WrappingRow(QWidget* parent);
  ~WrappingRow() override;

  // Has what `box` lays out go on in further rows where it does not fit.
  static void wrap(QBoxLayout& box);

  void addItem(QLayoutItem* item) override { _items.append(item); }
  int count() const override { return static_cast<int>(_items.size()); }
  QLayoutItem* itemAt(int index) const override { return _items.value(index); }
  QLayoutItem* takeAt(int index) override;
  Qt::Orientations expandingDirections() const override { return {}; }
  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override { return layOut(QRect(0, 0, width, 0), false); }
  QSize sizeHint() const override;
  QSize minimumSize() const override;
  void setGeometry(const QRect& room) override;

 private:
  int layOut(const QRect& room, bool place) const;
  void placeRow(const QList<QLayoutItem*>& row, const QRect& room) const;
  int widthOfItem(QLayoutItem* item) const;
  int widthOf(const QList<QLayoutItem*>& row) const;
  QList<QLayoutItem*> shown() const;

  QList<QLayoutItem*> _items;
};

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_BATCH_WRAPPINGROW_H_
