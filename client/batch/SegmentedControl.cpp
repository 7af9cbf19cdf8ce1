#include "client/batch/SegmentedControl.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QToolButton>

namespace postwright {
namespace {

// A segment's count is also read while the segment cannot be used.
QPalette readableAtRest(QPalette palette) {
  const QColor text = palette.color(QPalette::Active, QPalette::ButtonText);
  const QColor ground = palette.color(QPalette::Active, QPalette::Button);
  constexpr double kShare = 0.35;
  const auto mix = [](int one, int other) {
    return static_cast<int>(one * (1 - kShare) + other * kShare);
  };
  palette.setColor(QPalette::Disabled, QPalette::ButtonText,
                   QColor(mix(text.red(), ground.red()), mix(text.green(), ground.green()),
                          mix(text.blue(), ground.blue())));
  return palette;
}

}  // namespace

SegmentedControl::SegmentedControl(QWidget* parent) : QWidget(parent), _row(new QHBoxLayout(this)) {
  _row->setContentsMargins(0, 0, 0, 0);
  _row->setSpacing(0);
}

void SegmentedControl::addSegment(const QIcon& icon) {
  auto* segment = new QToolButton(this);
  segment->setCheckable(true);
  segment->setChecked(true);
  segment->setIcon(icon);
  segment->setPalette(readableAtRest(palette()));
  segment->setFocusPolicy(_segments.isEmpty() ? Qt::StrongFocus : Qt::ClickFocus);
  segment->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);  // one height for all
  segment->installEventFilter(this);
  connect(segment, &QToolButton::clicked, this, &SegmentedControl::clicked);
  _segments.append(segment);
  _row->addWidget(segment);
}

void SegmentedControl::setText(int segment, const QString& text) {
  QToolButton* button = _segments.at(segment);
  button->setText(text);
  button->setAccessibleName(QString(text).remove(u'&'));
  showIconsThatFit();
}

int SegmentedControl::widthWith(bool icons) const {
  constexpr int kBesideIcon = 4;  // what a QToolButton leaves between icon and text
  int width = 0;
  for (const QToolButton* segment : _segments) {
    const int icon = segment->icon().isNull() ? 0 : segment->iconSize().width() + kBesideIcon;
    const bool isShown = segment->toolButtonStyle() == Qt::ToolButtonTextBesideIcon;
    width += segment->sizeHint().width() - (isShown ? icon : 0) + (icons ? icon : 0);
  }
  return width;
}

QSize SegmentedControl::sizeHint() const {
  return {widthWith(true), _row->sizeHint().height()};
}

QSize SegmentedControl::minimumSizeHint() const {
  return {widthWith(false), _row->minimumSize().height()};
}

void SegmentedControl::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  showIconsThatFit();
}

void SegmentedControl::showIconsThatFit() {
  const bool fit = width() >= widthWith(true);
  for (QToolButton* segment : _segments) {
    segment->setToolButtonStyle(fit && !segment->icon().isNull() ? Qt::ToolButtonTextBesideIcon
                                                                 : Qt::ToolButtonTextOnly);
  }
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
