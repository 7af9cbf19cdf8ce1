#include "Palette.h"

#include <QApplication>
#include <QPalette>
#include <QStyleFactory>

void useDarkColours() {
  QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  QPalette palette(QColor(0x35, 0x35, 0x38), QColor(0x2b, 0x2b, 0x2e));
  palette.setColor(QPalette::Base, QColor(0x1e, 0x1e, 0x20));
  palette.setColor(QPalette::PlaceholderText, QColor(0xa8, 0xa8, 0xac));
  palette.setColor(QPalette::Highlight, QColor(0x2f, 0x5d, 0x9e));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::Disabled, QPalette::ButtonText, QColor(0x80, 0x80, 0x84));
  palette.setColor(QPalette::Disabled, QPalette::WindowText, QColor(0x80, 0x80, 0x84));
  palette.setColor(QPalette::Disabled, QPalette::Text, QColor(0x80, 0x80, 0x84));
  QApplication::setPalette(palette);
}
