#ifndef POSTWRIGHT_CLIENT_BATCH_SEGMENTEDCONTROL_H_
#define POSTWRIGHT_CLIENT_BATCH_SEGMENTEDCONTROL_H_

#include <QIcon>
#include <QList>
#include <QWidget>

class QHBoxLayout;
class QToolButton;

namespace postwright {

// A row of segments, each selected or not on its own. Tab reaches the row, the arrow keys go from
// segment to segment, the space bar and a segment's mnemonic select it or take it back. Where the
// room is too narrow the segments do without their icons.
class SegmentedControl final : public QWidget {
  Q_OBJECT

 public:
  explicit SegmentedControl(QWidget* parent = nullptr);

  // Adds a segment, selected, after the others.
  void addSegment(const QIcon& icon);
  void setText(int segment, const QString& text);

  bool isSelected(int segment) const;
  void setSelected(int segment, bool selected);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 signals:
  // The user has selected a segment or taken it back; setSelected() does not tell.
  void clicked();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  int widthWith(bool icons) const;
  void showIconsThatFit();
  void moveFocus(int from, int by);

  QHBoxLayout* _row;
  QList<QToolButton*> _segments;
};

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_BATCH_SEGMENTEDCONTROL_H_
