#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_SHEET_LABELFIT_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_SHEET_LABELFIT_H_

#include <QFont>
#include <QList>
#include <QPointF>
#include <QRectF>
#include <QString>

class QPainter;

namespace postwright::addressbook {

// How labels are lettered.
struct LabelStyle {
  static constexpr double kLeastPoints = 7;
  static constexpr double kMostPoints = 36;

  QString family = QStringLiteral("Sans Serif");
  double largestPoints = 11;  // what fits is set in this size
};

// A line of a label, ready to be drawn.
struct FittedLine {
  QString text;
  QPointF baseline;  // where it begins: inches from the top left corner of the label
};

// The lines of a label, all in one size.
struct FittedLabel {
  QList<FittedLine> lines;
  double points = 0;
  double top = 0;    // of the block
  bool fits = true;  // false: what there is room for stands in `lines`
};

// Sets the lines of `label` within `area`, which is in inches: from its left edge, the block half
// way between top and bottom with `headroom` kept free above it. A long line breaks at a word,
// except the one of city, state and ZIP code; what still does not fit has its type made smaller,
// and does not fit where it would be under 7 points. Nor does a text that no label was ever meant
// for: of more than 60 lines or of lines beyond 300 characters.
FittedLabel fitLabel(const QString& label, const QRectF& area, const LabelStyle& style,
                     double headroom = 0);

// Draws the lines on a painter whose unit is the inch, the label's corner at `corner`, in the
// painter's pen.
void drawLabel(QPainter& painter, const QPointF& corner, const FittedLabel& label,
               const LabelStyle& style);

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_SHEET_LABELFIT_H_
