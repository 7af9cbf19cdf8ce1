#include "apps/addressbook/widgets/EmptyPage.h"

#include <QAction>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace postwright::addressbook {

namespace {

constexpr double kTitleScale = 1.4;
constexpr int kSpacing = 12;

}  // namespace

EmptyPage::EmptyPage(QWidget* parent)
    : QWidget(parent),
      _title(new QLabel(this)),
      _sentence(new QLabel(this)),
      _button(new QPushButton(this)) {
  setAutoFillBackground(true);
  setBackgroundRole(QPalette::Base);
  QFont font = _title->font();
  font.setPointSizeF(font.pointSizeF() * kTitleScale);
  font.setBold(true);
  _title->setFont(font);
  _title->setAlignment(Qt::AlignCenter);
  _title->setObjectName(QStringLiteral("emptyTitle"));
  _sentence->setAlignment(Qt::AlignCenter);
  _sentence->setWordWrap(true);
  _sentence->setTextFormat(Qt::PlainText);
  _button->setObjectName(QStringLiteral("emptyStep"));
  auto* const layout = new QVBoxLayout(this);
  layout->setSpacing(kSpacing);
  layout->addStretch(2);
  layout->addWidget(_title);
  layout->addWidget(_sentence);
  layout->addWidget(_button, 0, Qt::AlignCenter);
  layout->addStretch(3);
  connect(_button, &QPushButton::clicked, this, [this] { _step->trigger(); });
}

void EmptyPage::explain(const QString& title, const QString& sentence, QAction* step) {
  _title->setText(title);
  _sentence->setText(sentence);
  _step = step;
  _button->setText(step->text());
  _button->setDefault(true);
}

}  // namespace postwright::addressbook
