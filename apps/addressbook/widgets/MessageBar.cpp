#include "apps/addressbook/widgets/MessageBar.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>

#include "apps/addressbook/widgets/ThemedIcon.h"

namespace postwright::addressbook {

namespace {

constexpr int kIconSize = 18;

}  // namespace

MessageBar::MessageBar(QWidget* parent)
    : QFrame(parent), _text(new QLabel(this)), _step(new QPushButton(this)) {
  setFrameShape(QFrame::StyledPanel);
  setAutoFillBackground(true);
  setBackgroundRole(QPalette::AlternateBase);
  _text->setObjectName(QStringLiteral("messageText"));
  _text->setWordWrap(true);
  _text->setTextFormat(Qt::PlainText);
  _text->setTextInteractionFlags(Qt::TextSelectableByMouse);
  _step->setObjectName(QStringLiteral("messageStep"));
  auto* const icon = new QToolButton(this);  // a label would keep the colours of one palette
  icon->setIcon(themedIcon(QStringLiteral("info")));
  icon->setIconSize(QSize(kIconSize, kIconSize));
  icon->setAutoRaise(true);
  icon->setFocusPolicy(Qt::NoFocus);
  icon->setAttribute(Qt::WA_TransparentForMouseEvents);
  auto* const close = new QToolButton(this);
  close->setIcon(themedIcon(QStringLiteral("close")));
  close->setAutoRaise(true);
  close->setToolTip(tr("Close this message"));
  close->setAccessibleName(tr("Close this message"));
  auto* const layout = new QHBoxLayout(this);
  layout->addWidget(icon);
  layout->addWidget(_text, 1);
  layout->addWidget(_step);
  layout->addWidget(close);
  connect(close, &QToolButton::clicked, this, &QWidget::hide);
  connect(_step, &QPushButton::clicked, this, [this] {
    hide();
    _take();
  });
  hide();
}

void MessageBar::tell(const QString& text) {
  tell(text, QString(), {});
}

void MessageBar::tell(const QString& text, const QString& step, std::function<void()> take) {
  _text->setText(text);
  _step->setText(step);
  _step->setVisible(!step.isEmpty());
  _take = std::move(take);
  show();
  QAccessibleEvent alert(_text, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
}

}  // namespace postwright::addressbook
