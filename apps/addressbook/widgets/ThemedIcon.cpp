#include "apps/addressbook/widgets/ThemedIcon.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>

namespace postwright::addressbook {

namespace {

enum class Tone { Text, Good, Warning, Quiet };

bool isDark() {
  return QGuiApplication::palette().color(QPalette::Base).lightness() < 128;
}

// Every pair has a contrast of 4.5 and more with the base of its palette.
QColor colorOf(Tone tone, QIcon::Mode mode) {
  const QPalette palette = QGuiApplication::palette();
  if (mode == QIcon::Selected) {
    return palette.color(QPalette::HighlightedText);
  }
  if (mode == QIcon::Disabled) {
    return palette.color(QPalette::Disabled, QPalette::WindowText);
  }
  switch (tone) {
    case Tone::Good:
      return isDark() ? QColor(0x7F, 0xCF, 0x92) : QColor(0x1E, 0x7B, 0x34);
    case Tone::Warning:
      return isDark() ? QColor(0xFF, 0x9C, 0x8A) : QColor(0xB3, 0x26, 0x1E);
    case Tone::Quiet:
      return isDark() ? QColor(0xA0, 0xA4, 0xA8) : QColor(0x60, 0x66, 0x6B);
    case Tone::Text:
      break;
  }
  return palette.color(QPalette::WindowText);
}

class ThemedIconEngine final : public QIconEngine {
 public:
  ThemedIconEngine(const QString& name, Tone tone) : _tone(tone) {
    QFile file(QStringLiteral(":/addressbook/icons/%1.svg").arg(name));
    if (file.open(QIODevice::ReadOnly)) {
      _svg = file.readAll();
    }
  }

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    QByteArray colored = _svg;
    colored.replace("currentColor", colorOf(_tone, mode).name().toLatin1());
    QSvgRenderer(colored).render(painter, rect);
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return pixmap;
  }

  QIconEngine* clone() const override { return new ThemedIconEngine(*this); }

 private:
  QByteArray _svg;
  Tone _tone;
};

}  // namespace

QIcon themedIcon(const QString& name) {
  return QIcon(new ThemedIconEngine(name, Tone::Text));
}

QIcon stateIcon(CheckState state) {
  switch (state) {
    case CheckState::Right:
      return QIcon(new ThemedIconEngine(QStringLiteral("right"), Tone::Good));
    case CheckState::DueAgain:
      return QIcon(new ThemedIconEngine(QStringLiteral("due"), Tone::Quiet));
    case CheckState::Failed:
      return QIcon(new ThemedIconEngine(QStringLiteral("failed"), Tone::Warning));
    case CheckState::NotChecked:
    case CheckState::Foreign:
      break;
  }
  return QIcon(new ThemedIconEngine(QStringLiteral("unchecked"), Tone::Quiet));
}

}  // namespace postwright::addressbook
