#include "apps/addressbook/sheet/LabelFit.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "apps/tables/LabelText.h"

namespace postwright::addressbook {

namespace {

constexpr double kPointsPerInch = 72;
constexpr double kStep = 0.25;   // points from a size to the next smaller one
constexpr double kSlack = 1e-6;  // inches, for sums that come out a hair too large
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

// In inches for type of one point.
double unit(double pixels) {
  return pixels / kDrawnPixels / kPointsPerInch;
}

// A line and what it measures in type of one point.
struct MeasuredLine {
  QString text;
  double width = 0;
  QStringList words;  // none where the line must not break
  QList<double> widths;
};

MeasuredLine measured(const QString& text, const QFontMetricsF& metrics) {
  MeasuredLine line{text, unit(metrics.horizontalAdvance(text)), {}, {}};
  if (!tables::readPlace(text)) {
    line.words = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString& word : line.words) {
      line.widths.append(unit(metrics.horizontalAdvance(word)));
    }
  }
  return line;
}

// The lines broken so that each is at most `room` wide; `isInside` tells whether that went well.
QStringList broken(const QList<MeasuredLine>& lines, double room, double space, bool* isInside) {
  QStringList texts;
  *isInside = true;
  for (const MeasuredLine& line : lines) {
    if (line.width <= room + kSlack || line.words.size() < 2) {
      *isInside = *isInside && line.width <= room + kSlack;
      texts.append(line.text);
      continue;
    }
    QString text;
    double width = 0;
    for (qsizetype word = 0; word < line.words.size(); ++word) {
      const double own = line.widths[word];
      *isInside = *isInside && own <= room + kSlack;
      if (word > 0 && width + space + own <= room) {
        text += QLatin1Char(' ') + line.words[word];
        width += space + own;
      } else {
        if (word > 0) {
          texts.append(text);
        }
        text = line.words[word];
        width = own;
      }
    }
    texts.append(text);
  }
  return texts;
}

}  // namespace

FittedLabel fitLabel(const QString& label, const QRectF& area, const LabelStyle& style,
                     double headroom) {
  const QFontMetricsF metrics(drawnFont(style));
  const double height = unit(metrics.height());
  const double space = unit(metrics.horizontalAdvance(QLatin1Char(' ')));
  QStringList texts = label.split(QLatin1Char('\n'));
  FittedLabel fitted;
  fitted.fits = texts.size() <= kMostLines;
  texts.resize(std::min(texts.size(), kMostLines));
  QList<MeasuredLine> lines;
  for (const QString& text : texts) {
    fitted.fits = fitted.fits && text.size() <= kMostCharacters;
    lines.append(measured(text.first(std::min(text.size(), kMostCharacters)), metrics));
  }
  // The smallest size is at step 0: where that one fits, the largest that does is looked for.
  const auto fitsAt = [&](int step) {
    fitted.points = std::min(LabelStyle::kLeastPoints + step * kStep, style.largestPoints);
    bool isInside = false;
    texts = broken(lines, area.width() / fitted.points, space, &isInside);
    const double whole = headroom + height * fitted.points * static_cast<double>(texts.size());
    return isInside && whole <= area.height() + kSlack;
  };
  int least = 0;
  int most = static_cast<int>(std::ceil((style.largestPoints - LabelStyle::kLeastPoints) / kStep));
  if (!fitsAt(0)) {
    fitted.fits = false;
    most = 0;
  }
  while (least < most) {
    const int middle = (least + most + 1) / 2;
    if (fitsAt(middle)) {
      least = middle;
    } else {
      most = middle - 1;
    }
  }
  fitsAt(least);
  const double line = height * fitted.points;
  const double whole = headroom + line * static_cast<double>(texts.size());
  fitted.top = area.top() + std::max(0.0, (area.height() - whole) / 2) + headroom;
  for (qsizetype row = 0; row < texts.size(); ++row) {
    const double top = fitted.top + line * static_cast<double>(row);
    if (top + line > area.bottom() + kSlack && !fitted.fits) {
      break;
    }
    fitted.lines.append({texts[row], {area.left(), top + unit(metrics.ascent()) * fitted.points}});
  }
  return fitted;
}

void drawLabel(QPainter& painter, const QPointF& corner, const FittedLabel& label,
               const LabelStyle& style) {
  painter.setFont(drawnFont(style));
  const double scale = label.points / kPointsPerInch / kDrawnPixels;
  for (const FittedLine& line : label.lines) {
    painter.save();
    painter.translate(corner + line.baseline);
    painter.scale(scale, scale);
    painter.drawText(QPointF(), line.text);
    painter.restore();
  }
}

}  // namespace postwright::addressbook
