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

// The text as the cell shows it, in as many lines as fit, and its formats, which count from the
// start of the text as it is.
QString shownText(const QString& text, qsizetype lines, QList<QTextLayout::FormatRange>& formats) {
  const QString cut = cutLongLines(text, kShown, lines);
  if (cut.size() != text.size()) {
    QList<QTextLayout::FormatRange> shown;
    qsizetype from = 0;
    qsizetype to = 0;
    for (const QString& line : cut.split(u'\n')) {
      for (QTextLayout::FormatRange format : formats) {
        if (format.start >= from && format.start < from + line.size()) {
          format.length = static_cast<int>(
              std::min<qsizetype>(format.length, from + line.size() - format.start));
          format.start += static_cast<int>(to - from);
          shown.append(format);
        }
      }
      const qsizetype end = text.indexOf(u'\n', from);
      from = end < 0 ? text.size() : end + 1;
      to += line.size() + 1;
    }
    formats = shown;
  }
  return QString(cut).replace(u'\n', QChar::LineSeparator);
}

// Lays the text out in lines as it has them, each cut to the width; returns the height, of as many
// lines as fit into the height of `room`, at least one.
double layOut(QTextLayout& layout, const QRectF& room, double lineHeight) {
  QTextOption option;
  option.setWrapMode(QTextOption::NoWrap);
  layout.setTextOption(option);
  const auto fitting = std::max(1, static_cast<int>(room.height() / lineHeight));
  double height = 0;
  layout.beginLayout();
  for (int lines = 0; lines < fitting; ++lines) {
    QTextLine line = layout.createLine();
    if (!line.isValid()) {
      break;
    }
    line.setLineWidth(room.width());
    line.setPosition({0, height});
    height += lineHeight;
  }
  layout.endLayout();
  return height;
}

// Text that goes on past what is shown ends in an ellipsis there.
void drawEllipsis(QPainter& painter, const QTextLayout& layout, const QRectF& room, double top,
                  const QString& text) {
  const QFontMetricsF metrics(layout.font());
  const QString ellipsis(u'…');
  const double width = metrics.horizontalAdvance(ellipsis);
  for (int i = 0; i < layout.lineCount(); ++i) {
    const QTextLine line = layout.lineAt(i);
    const bool last =
        i + 1 == layout.lineCount() && line.textStart() + line.textLength() < text.size();
    if (!last && line.naturalTextWidth() <= room.width()) {
      continue;
    }
    const double x = std::min(room.left() + line.naturalTextWidth(), room.right() - width);
    const QRectF place(x, top + line.y(), room.right() + kMargin - x, line.height());
    painter.fillRect(place, painter.background());
    painter.drawText(QPointF(x, place.top() + line.ascent()), ellipsis);
  }
}

}  // namespace

void AddressDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const {
  QStyleOptionViewItem cell = option;
  initStyleOption(&cell, index);
  const QString text = cell.text;
  const QString hint = index.data(BatchTableModel::HintRole).toString();
  cell.text.clear();
  const QStyle* style = cell.widget != nullptr ? cell.widget->style() : QApplication::style();
  style->drawControl(QStyle::CE_ItemViewItem, &cell, painter, cell.widget);

  const bool selected = cell.state.testFlag(QStyle::State_Selected);
  const QPalette& palette = cell.palette;
  const bool own = hint.isEmpty();
  const double lineHeight = QFontMetricsF(cell.font).height();
  const auto lines = static_cast<qsizetype>(cell.rect.height() / lineHeight) + 1;
  QList<QTextLayout::FormatRange> formats;
  if (own) {
    formats = formatsFor(index, palette);
  }
  const QString shown = shownText(own ? text : hint, lines, formats);
  if (selected) {
    for (QTextLayout::FormatRange& format : formats) {
      format.format.clearBackground();  // on the selection's colour the lines tell enough
    }
  }
  QTextLayout layout(shown, cell.font);
  layout.setFormats(formats);

  const QRectF room = QRectF(cell.rect).adjusted(kMargin, 0, -kMargin, 0);
  const double height = layOut(layout, room, lineHeight);
  const double top = room.top() + std::max(0.0, (room.height() - height) / 2);
  painter->save();
  painter->setClipRect(cell.rect);
  painter->setBackground(palette.brush(selected ? QPalette::Highlight : QPalette::Base));
  QColor colour = palette.color(selected ? QPalette::HighlightedText : QPalette::Text);
  if (!own && !selected) {
    colour = palette.color(QPalette::PlaceholderText);
  }
  painter->setPen(colour);
  layout.draw(painter, {room.left(), top});
  drawEllipsis(*painter, layout, room, top, shown);
  painter->restore();
}

}  // namespace postwright
