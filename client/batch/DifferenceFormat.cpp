#include "client/batch/DifferenceFormat.h"

namespace postwright {
namespace {

QColor tint(const QColor& base, const QColor& colour) {
  constexpr double kShare = 0.25;
  const auto mix = [](int under, int over) {
    return static_cast<int>(under * (1 - kShare) + over * kShare);
  };
  return {mix(base.red(), colour.red()), mix(base.green(), colour.green()),
          mix(base.blue(), colour.blue())};
}

}  // namespace

QTextCharFormat markFormat(MarkKind kind, const QPalette& palette) {
  const bool removed = kind == MarkKind::Removed;
  QTextCharFormat format;
  format.setFontStrikeOut(removed);
  format.setFontUnderline(!removed);
  format.setBackground(
      tint(palette.color(QPalette::Base), removed ? QColor(224, 48, 48) : QColor(32, 160, 64)));
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
