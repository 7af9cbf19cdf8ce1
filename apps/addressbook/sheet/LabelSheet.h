#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_SHEET_LABELSHEET_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_SHEET_LABELSHEET_H_

#include <QCoreApplication>
#include <QList>
#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <QString>

namespace postwright::addressbook {

// A kind of label sheet on letter paper. Lengths are inches, from the top left corner of the paper.
struct LabelSheet {
  Q_DECLARE_TR_FUNCTIONS(postwright::addressbook::LabelSheet)

 public:
  // The kinds that are sold everywhere, the most common one first.
  static const QList<LabelSheet>& all();

  // The kind of this name, the most common one where there is none.
  static const LabelSheet& named(const QString& name);

  // 8 1/2 by 11.
  static QSizeF paper() { return {8.5, 11.0}; }

  // "1 x 2-5/8 in, 30 labels", in the user's language.
  QString title() const;

  int size() const { return columns * rows; }

  // Where a label lies; labels are counted from 0, row by row.
  QRectF place(int index) const;

  const char* name;      // what the settings know it by, for good
  const char* measures;  // "1 x 2-5/8", the height first, as on the box
  int columns;
  int rows;
  QSizeF label;
  QPointF first;  // top left corner of the first label
  QSizeF pitch;   // from a label to its neighbours
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_SHEET_LABELSHEET_H_
