#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_SHEET_LABELFIT_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_SHEET_LABELFIT_H_

#include <QFont>
#include <QList>
#include <QPointF>
#include <QSizeF>
#include <QString>

class QPainter;

namespace postwright::addressbook {

// How labels are lettered.
struct LabelStyle {
  static constexpr double kLeastPoints = 5;
  static constexpr double kMostPoints = 36;

  QString family = QStringLiteral("Sans Serif");
  double largestPoints = 11;  // what fits is set in this size
};

// A line of a label, ready to be drawn.
struct FittedLine {
  QString text;
  double points;     // its size
  QPointF baseline;  // where it begins: inches from the top left corner of the label
};

// Sets the lines of `label` on a piece of paper of `size` inches: from a margin on the left, the
// block half way between top and bottom, every line inside. The type of all lines shrinks together
// where there are many, and by a fifth where one is long; a line that is still too long shrinks by
// itself. Of a text that no label was ever meant for, the first 60 lines of 300 characters are set.
QList<FittedLine> fitLabel(const QString& label, const QSizeF& size, const LabelStyle& style);

// Draws the lines on a painter whose unit is the inch, the label's corner at `corner`, in the
// painter's pen.
void drawLabel(QPainter& painter, const QPointF& corner, const QList<FittedLine>& lines,
               const LabelStyle& style);

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_SHEET_LABELFIT_H_
