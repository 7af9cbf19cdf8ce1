#include "apps/addressbook/widgets/ScrollingForm.h"

#include <QDialog>
#include <QScreen>
#include <QScrollBar>

namespace postwright::addressbook {

namespace {

constexpr QSize kLeast(160, 60);
constexpr QSize kFrame(16, 48);  // what a window has around it, more or less

}  // namespace

ScrollingForm::ScrollingForm(QWidget* content, QWidget* parent) : QScrollArea(parent) {
  setWidget(content);
  setWidgetResizable(true);
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::NoFocus);
  content->setAutoFillBackground(false);
  viewport()->setAutoFillBackground(false);
}

QSize ScrollingForm::sizeHint() const {
  return widget()->sizeHint() + QSize(verticalScrollBar()->sizeHint().width(), 0);
}

QSize ScrollingForm::minimumSizeHint() const {
  return sizeHint().boundedTo(kLeast);
}

void resizeToScreen(QDialog& dialog, const QSize& wanted) {
  dialog.resize(wanted.boundedTo(dialog.screen()->availableSize() - kFrame));
}

}  // namespace postwright::addressbook
