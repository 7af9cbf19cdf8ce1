#include "client/batch/SegmentedControl.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QToolButton>

namespace postwright {

SegmentedControl::SegmentedControl(QWidget* parent) : QWidget(parent), _row(new QHBoxLayout(this)) {
  _row->setContentsMargins(0, 0, 0, 0);
  _row->setSpacing(0);
}

void SegmentedControl::addSegment(const QIcon& icon) {
  auto* segment = new QToolButton(this);
  segment->setCheckable(true);
  segment->setChecked(true);
  segment->setIcon(icon);
  segment->setToolButtonStyle(icon.isNull() ? Qt::ToolButtonTextOnly
                                            : Qt::ToolButtonTextBesideIcon);
  segment->setFocusPolicy(_segments.isEmpty() ? Qt::StrongFocus : Qt::ClickFocus);
  segment->installEventFilter(this);
  connect(segment, &QToolButton::clicked, this, &SegmentedControl::clicked);
  _segments.append(segment);
  _row->addWidget(segment);
}

void SegmentedControl::setText(int segment, const QString& text) {
  QToolButton* button = _segments.at(segment);
  button->setText(text);
  button->setAccessibleName(QString(text).remove(u'&'));
}

bool SegmentedControl::isSelected(int segment) const {
  return _segments.at(segment)->isChecked();
}

void SegmentedControl::setSelected(int segment, bool selected) {
  _segments.at(segment)->setChecked(selected);
}

bool SegmentedControl::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    const auto segment = static_cast<int>(_segments.indexOf(static_cast<QToolButton*>(watched)));
    if (key == Qt::Key_Left || key == Qt::Key_Right) {
      moveFocus(segment, (key == Qt::Key_Right) != isRightToLeft() ? 1 : -1);
      return true;
    }
  }
  return QWidget::eventFilter(watched, event);
}

// The row is one stop of the Tab key, at the segment that was used last.
void SegmentedControl::moveFocus(int from, int by) {
  const int to = from + by;
  if (to < 0 || to >= _segments.size()) {
    return;
  }
  _segments.at(from)->setFocusPolicy(Qt::ClickFocus);
  _segments.at(to)->setFocusPolicy(Qt::StrongFocus);
  _segments.at(to)->setFocus(Qt::TabFocusReason);
}

}  // namespace postwright
