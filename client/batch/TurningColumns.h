#ifndef POSTWRIGHT_CLIENT_BATCH_TURNINGCOLUMNS_H_
#define POSTWRIGHT_CLIENT_BATCH_TURNINGCOLUMNS_H_

#include <QBoxLayout>

namespace postwright {

// Lays its columns out side by side, each as wide as the others, and one below the other where the
// room is too narrow for that, so that a page need not scroll sideways.
class TurningColumns final : public QBoxLayout {
  Q_OBJECT

 public:
  TurningColumns() : QBoxLayout(LeftToRight) {}

  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override { return minimumHeightForWidth(width); }
  int minimumHeightForWidth(int width) const override;
  QSize minimumSize() const override;
  void setGeometry(const QRect& room) override;

 private:
  bool fitsSideBySide(int width) const;
  int widthOfEach(int width) const;
  int leastHeight(int column, int width) const;
};

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_BATCH_TURNINGCOLUMNS_H_
