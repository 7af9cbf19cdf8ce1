#include "client/batch/AddressDelegate.h"

#include <QApplication>
#include <QPainter>
#include <QTextLayout>
#include <algorithm>

#include "client/batch/BatchTableModel.h"
#include "client/batch/DifferenceFormat.h"
#include "client/batch/review/LongLines.h"

namespace postwright {
namespace {

constexpr int kMargin = 6;

// More of a line than any column is wide.
constexpr qsizetype kShown = 1000;

QList<QTextLayout::FormatRange> formatsFor(const QModelIndex& index, const QPalette& palette) {
  const auto marks = index.data(BatchTableModel::MarksRole).value<CellMarks>();
  return markFormats(marks.changed, marks.kind, palette) +
         markFormats(marks.moved, MarkKind::Moved, palette);
}

// What of the formats falls into a line of the text, counted from the line's start.
QList<QTextLayout::FormatRange> formatsOf(const TextMark& line,
                                          const QList<QTextLayout::FormatRange>& formats) {
  QList<QTextLayout::FormatRange> within;
  for (QTextLayout::FormatRange format : formats) {
    const qsizetype from = std::max<qsizetype>(format.start, line.start);
    const qsizetype to =
        std::min<qsizetype>(format.start + format.length, line.start + line.length);
    if (from < to) {
      format.start = static_cast<int>(from - line.start);
      format.length = static_cast<int>(to - from);
      within.append(format);
    }
  }
  return within;
}

// The first lines of the text, at most `most`.
QList<TextMark> linesOf(const QString& text, int most) {
  QList<TextMark> lines;
  for (qsizetype start = 0; start <= text.size() && lines.size() < most;) {
    const qsizetype found = text.indexOf(u'\n', start);
    const qsizetype end = found < 0 ? text.size() : found;
    lines.append({start, end - start});
    start = end + 1;
  }
  return lines;
}

// Draws a line cut to the width of `room`; one that goes on, or that others follow which are not
// drawn, ends in an ellipsis.
void drawLine(QPainter& painter, const QTextLayout& layout, const QRectF& room, bool goesOn) {
  const QTextLine line = layout.lineAt(0);
  const QFontMetricsF metrics(layout.font());
  // On the font's own base line, also where the letters are another font's.
  layout.draw(&painter, QPointF(room.left(), room.top() + metrics.ascent() - line.ascent()));
  if (!goesOn && line.naturalTextWidth() <= room.width()) {
    return;
  }
  const QString ellipsis(u'…');
  const double width = metrics.horizontalAdvance(ellipsis);
  const double x = std::min(room.left() + line.naturalTextWidth(), room.right() - width);
  painter.fillRect(QRectF(x, room.top(), room.right() + kMargin - x, room.height()),
                   painter.background());
  painter.drawText(QPointF(x, room.top() + metrics.ascent()), ellipsis);
}

// Draws as many lines as fit, at least one, in the middle of the height. Each is laid out by
// itself: a name that is written from right to left turns no other line round.
void drawLines(QPainter& painter, const QFont& font, const QRectF& room, const QString& text,
               const QList<QTextLayout::FormatRange>& formats) {
  QTextOption option;
  option.setWrapMode(QTextOption::NoWrap);
  const double lineHeight = QFontMetricsF(font).height();
  const QList<TextMark> lines =
      linesOf(text, std::max(1, static_cast<int>(room.height() / lineHeight)));
  const double height = lineHeight * static_cast<double>(lines.size());
  QRectF place = room;
  place.setTop(room.top() + std::max(0.0, (room.height() - height) / 2));
  place.setHeight(lineHeight);
  for (const TextMark& line : lines) {
    const qsizetype shown = std::min(line.length, kShown);
    QTextLayout layout(text.mid(line.start, shown), font);
    layout.setTextOption(option);
    layout.setFormats(formatsOf({line.start, shown}, formats));
    layout.beginLayout();
    layout.createLine().setLineWidth(place.width());
    layout.endLayout();
    const bool isCut = &line == &lines.last() && line.start + line.length < text.size();
    drawLine(painter, layout, place, isCut || shown < line.length);
    place.translate(0, lineHeight);
  }
}

}  // namespace

void AddressDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const {
  QStyleOptionViewItem cell = option;
  initStyleOption(&cell, index);
  const QString text = index.data().toString();  // with its own line breaks
  const QString hint = index.data(BatchTableModel::HintRole).toString();
  cell.text.clear();
  const QStyle* style = cell.widget != nullptr ? cell.widget->style() : QApplication::style();
  style->drawControl(QStyle::CE_ItemViewItem, &cell, painter, cell.widget);

  const bool selected = cell.state.testFlag(QStyle::State_Selected);
  const QPalette& palette = cell.palette;
  const bool own = hint.isEmpty();
  QList<QTextLayout::FormatRange> formats;
  if (own) {
    formats = formatsFor(index, palette);
  }
  if (selected) {
    for (QTextLayout::FormatRange& format : formats) {
      format.format.clearBackground();  // on the selection's colour the lines tell enough
    }
  }
  painter->save();
  painter->setClipRect(cell.rect);
  painter->setBackground(palette.brush(selected ? QPalette::Highlight : QPalette::Base));
  QColor colour = palette.color(selected ? QPalette::HighlightedText : QPalette::Text);
  if (!own && !selected) {
    colour = palette.color(QPalette::PlaceholderText);
  }
  painter->setPen(colour);
  // The marks count in the text as it is compared.
  drawLines(*painter, cell.font, QRectF(cell.rect).adjusted(kMargin, 0, -kMargin, 0),
            cutLongLines(own ? text : hint), formats);
  painter->restore();
}

}  // namespace postwright
