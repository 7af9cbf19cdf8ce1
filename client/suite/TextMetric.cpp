#include "client/suite/TextMetric.h"

#include <QFontMetricsF>
#include <algorithm>

#include "client/suite/StringHelpers.h"

namespace postwright::TextMetric {

QSizeF sizeForString(const QString& text, const QFont& font) {
  const QFontMetricsF metrics(font);
  const QStringList lines = StringHelpers::lines(text);
  double width = 0;
  for (const QString& line : lines) {
    width = std::max(width, metrics.horizontalAdvance(line));
  }
  const auto count = static_cast<double>(std::max<qsizetype>(lines.size(), 1));
  return {width, count * metrics.height() + (count - 1) * std::max(metrics.leading(), 0.0)};
}

}  // namespace postwright::TextMetric
