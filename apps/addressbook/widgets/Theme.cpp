#include "apps/addressbook/widgets/Theme.h"

#include <QApplication>
#include <QPalette>
#include <QStyle>
#include <QStyleFactory>

namespace postwright::addressbook {

namespace {

struct Colors {
  QColor window;
  QColor base;
  QColor alternateBase;
  QColor button;
  QColor text;
  QColor disabledText;
  QColor placeholder;
  QColor highlight;
  QColor link;
};

// Text has a contrast of 7 and more with what it stands on, placeholders 4.5.
const Colors kLight = {
    QColor(0xF3, 0xF4, 0xF5), QColor(0xFF, 0xFF, 0xFF), QColor(0xF6, 0xF8, 0xF9),
    QColor(0xEC, 0xEE, 0xF0), QColor(0x1B, 0x1F, 0x23), QColor(0x8C, 0x92, 0x98),
    QColor(0x66, 0x6C, 0x72), QColor(0x1F, 0x6A, 0x8C), QColor(0x1A, 0x5C, 0x7A)};
const Colors kDark = {QColor(0x25, 0x28, 0x2B), QColor(0x1B, 0x1D, 0x1F), QColor(0x21, 0x24, 0x26),
                      QColor(0x33, 0x37, 0x3B), QColor(0xE8, 0xEA, 0xEC), QColor(0x7D, 0x83, 0x89),
                      QColor(0x9A, 0xA0, 0xA6), QColor(0x2B, 0x76, 0x99), QColor(0x7F, 0xC4, 0xE0)};

QPalette paletteOf(const Colors& colors) {
  QPalette palette(colors.button, colors.window);
  palette.setColor(QPalette::Base, colors.base);
  palette.setColor(QPalette::AlternateBase, colors.alternateBase);
  palette.setColor(QPalette::ToolTipBase, colors.base);
  palette.setColor(QPalette::PlaceholderText, colors.placeholder);
  palette.setColor(QPalette::Highlight, colors.highlight);
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::Link, colors.link);
  for (const QPalette::ColorRole role :
       {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
    palette.setColor(role, colors.text);
    palette.setColor(QPalette::Disabled, role, colors.disabledText);
  }
  palette.setColor(QPalette::Disabled, QPalette::Highlight, colors.button);
  palette.setColor(QPalette::Disabled, QPalette::HighlightedText, colors.disabledText);
  return palette;
}

}  // namespace

void applyAppearance(Appearance appearance) {
  if (appearance == Appearance::System) {
    QApplication::setPalette(QPalette());
    return;
  }
  // Fusion draws everything from the palette; other styles bring colours of their own.
  if (QApplication::style()->name() != QStringLiteral("fusion")) {
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  }
  QApplication::setPalette(paletteOf(appearance == Appearance::Dark ? kDark : kLight));
}

}  // namespace postwright::addressbook
