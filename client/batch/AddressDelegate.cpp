#include "client/batch/AddressDelegate.h"

#include <QApplication>
#include <QPainter>
#include <QTextLayout>
#include <algorithm>

#include "client/batch/BatchTableModel.h"
#include "client/batch/DifferenceFormat.h"

namespace postwright {
namespace {

constexpr int kMargin = 6;

QList<QTextLayout::FormatRange> formatsFor(const QModelIndex& index, const QPalette& palette) {
  if (!index.data(BatchTableModel::MarkedRole).toBool()) {
    return {};
  }
  const auto textIn = [&index](int column) {
    return index.siblingAtColumn(column).data(Qt::DisplayRole).toString();
  };
  const Differences differences =
      findDifferences(textIn(BatchTableModel::AddressColumn), textIn(BatchTableModel::FixedColumn));
  return index.column() == BatchTableModel::AddressColumn
             ? markFormats(differences.removed, MarkKind::Removed, palette)
             : markFormats(differences.added, MarkKind::Added, palette);
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
  QString shown = own ? text : hint;
  shown.replace(u'\n', QChar::LineSeparator);
  QTextLayout layout(shown, cell.font);
  if (own && !selected) {
    layout.setFormats(formatsFor(index, palette));
  } else if (own) {
    QList<QTextLayout::FormatRange> formats = formatsFor(index, palette);
    for (QTextLayout::FormatRange& format : formats) {
      format.format.clearBackground();  // on the selection's colour the lines tell enough
    }
    layout.setFormats(formats);
  }

  const QRectF room = QRectF(cell.rect).adjusted(kMargin, 0, -kMargin, 0);
  const double height = layOut(layout, room, QFontMetricsF(cell.font).height());
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
