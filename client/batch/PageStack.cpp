#include "client/batch/PageStack.h"

#include <QLayout>

namespace postwright {

PageStack::PageStack(QWidget* parent) : QStackedWidget(parent) {
  connect(this, &QStackedWidget::currentChanged, this, &QWidget::updateGeometry);
}

QSize PageStack::sizeHint() const {
  return withMargins(currentWidget()->sizeHint());
}

QSize PageStack::minimumSizeHint() const {
  return withMargins(currentWidget()->minimumSizeHint());
}

int PageStack::heightForWidth(int width) const {
  const QMargins margins = contentsMargins();
  const int room = width - margins.left() - margins.right();
  return withMargins({0, currentWidget()->layout()->totalMinimumHeightForWidth(room)}).height();
}

QSize PageStack::withMargins(const QSize& page) const {
  return page.grownBy(contentsMargins());
}

}  // namespace postwright
