#include "client/batch/DifferenceFormat.h"

namespace postwright {
namespace {

QColor tint(const QColor& base, const QColor& colour, double share) {
  const auto mix = [share](int under, int over) {
    return static_cast<int>(under * (1 - share) + over * share);
  };
  return {mix(base.red(), colour.red()), mix(base.green(), colour.green()),
          mix(base.blue(), colour.blue())};
}

}  // namespace

QTextCharFormat markFormat(MarkKind kind, const QPalette& palette) {
  constexpr double kShare = 0.25;
  constexpr double kStrongShare = 0.4;
  const QColor base = palette.color(QPalette::Base);
  QTextCharFormat format;
  switch (kind) {
    case MarkKind::Removed:
      format.setFontStrikeOut(true);
      format.setBackground(tint(base, QColor(224, 48, 48), kShare));
      break;
    case MarkKind::Added:
      format.setFontUnderline(true);
      format.setBackground(tint(base, QColor(32, 160, 64), kShare));
      break;
    case MarkKind::Moved:
      format.setFontWeight(QFont::Bold);
      format.setUnderlineStyle(QTextCharFormat::DashUnderline);
      format.setBackground(tint(base, QColor(240, 150, 0), kStrongShare));
      break;
  }
  return format;
}

QList<QTextLayout::FormatRange> markFormats(const QList<TextMark>& marks, MarkKind kind,
                                            const QPalette& palette) {
  const QTextCharFormat format = markFormat(kind, palette);
  QList<QTextLayout::FormatRange> formats;
  for (const TextMark& mark : marks) {
    QTextLayout::FormatRange range;
    range.start = static_cast<int>(mark.start);
    range.length = static_cast<int>(mark.length);
    range.format = format;
    formats.append(range);
  }
  return formats;
}

}  // namespace postwright
