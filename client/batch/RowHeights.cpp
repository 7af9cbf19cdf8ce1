#include "client/batch/RowHeights.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QtMath>
#include <algorithm>

#include "client/suite/StringHelpers.h"
#include "client/suite/TextMetric.h"

namespace postwright {

QFont tableFont() {
  constexpr int kSize = 14;
  QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
  font.setPixelSize(std::max(kSize, QFontInfo(font).pixelSize()));
  return font;
}

int RowHeights::heightFor(const QString& text) {
  constexpr double kLeast = 48.0;
  constexpr int kBetweenRows = 6;
  const qsizetype lines = StringHelpers::lines(text).size();
  const auto known = _byLines.constFind(lines);
  if (known != _byLines.constEnd()) {
    return *known;
  }
  const qsizetype measured = std::max<qsizetype>(lines, _leastLines);
  const QString sample = QStringLiteral("x\n").repeated(measured).chopped(measured > 0 ? 1 : 0);
  const double height = std::max(TextMetric::sizeForString(sample, _font).height(), kLeast);
  return *_byLines.insert(lines, qCeil(height) + kBetweenRows);
}

}  // namespace postwright
