#include "apps/addressbook/sheet/LabelFit.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>

namespace postwright::addressbook {

namespace {

constexpr double kPointsPerInch = 72;
constexpr double kSideMargin = 0.125;
constexpr double kTopMargin = 0.0625;
constexpr double kLeastShared = 0.8;  // of the size, that all lines shrink to for the longest

constexpr qsizetype kMostLines = 60;
constexpr qsizetype kMostCharacters = 300;

// Type is measured and drawn in one large size and scaled, so that lines are as long on paper as
// they were measured, whatever the device makes of small sizes.
constexpr int kDrawnPixels = 200;

QFont drawnFont(const LabelStyle& style) {
  QFont font(style.family);
  font.setPixelSize(kDrawnPixels);
  font.setHintingPreference(QFont::PreferNoHinting);
  return font;
}

QString cut(const QString& text) {
  return text.size() <= kMostCharacters ? text : text.first(kMostCharacters) + QChar(0x2026);
}

}  // namespace

QList<FittedLine> fitLabel(const QString& label, const QSizeF& size, const LabelStyle& style) {
  QStringList texts = label.split(QLatin1Char('\n'));
  texts.resize(std::min(texts.size(), kMostLines));
  const QFontMetricsF metrics(drawnFont(style));
  // In inches for type of one point.
  const auto unit = [](double pixels) { return pixels / kDrawnPixels / kPointsPerInch; };
  const double room = size.width() - 2 * kSideMargin;
  const double height = unit(metrics.height()) * static_cast<double>(texts.size());
  QList<double> widths;
  for (QString& text : texts) {
    text = cut(text);
    widths.append(unit(metrics.horizontalAdvance(text)));
  }
  const double longest = *std::max_element(widths.begin(), widths.end());
  double points = std::min(style.largestPoints, (size.height() - 2 * kTopMargin) / height);
  if (longest * points > room) {
    points = std::max(room / longest, points * kLeastShared);
  }
  QList<FittedLine> lines;
  double top = (size.height() - height * points) / 2;
  for (qsizetype row = 0; row < texts.size(); ++row) {
    const double own = widths[row] * points > room ? room / widths[row] : points;
    const double baseline = top + unit(metrics.ascent()) * points;
    lines.append({texts[row], own, {kSideMargin, baseline}});
    top += unit(metrics.height()) * points;
  }
  return lines;
}

void drawLabel(QPainter& painter, const QPointF& corner, const QList<FittedLine>& lines,
               const LabelStyle& style) {
  painter.setFont(drawnFont(style));
  for (const FittedLine& line : lines) {
    const double scale = line.points / kPointsPerInch / kDrawnPixels;
    painter.save();
    painter.translate(corner + line.baseline);
    painter.scale(scale, scale);
    painter.drawText(QPointF(), line.text);
    painter.restore();
  }
}

}  // namespace postwright::addressbook
