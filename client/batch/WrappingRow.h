#ifndef POSTWRIGHT_CLIENT_BATCH_WRAPPINGROW_H_
#define POSTWRIGHT_CLIENT_BATCH_WRAPPINGROW_H_

#include <QLayout>
#include <QList>

namespace postwright {

// Lays its items out side by side, the last of them at the far end, or below one another where they
// do not fit, so that a row of controls does not keep a window wide.
class WrappingRow final : public QLayout {
  Q_OBJECT

 public:
  explicit WrappingRow(QWidget* parent);
  ~WrappingRow() override;

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
  int widthOfAll() const;

  QList<QLayoutItem*> _items;
};

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_BATCH_WRAPPINGROW_H_
