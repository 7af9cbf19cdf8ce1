#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_SHEET_LABELSHEET_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_SHEET_LABELSHEET_H_

#include <QCoreApplication>
#include <QList>
#include <QPageLayout>
#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <QString>
#include <QStringList>

namespace postwright::addressbook {

// The papers that are printed on. The numbers are kept in the settings.
enum class Paper { Letter = 0, A4 = 1, Envelope10 = 2, Envelope634 = 3 };

// A kind of label sheet, or an envelope, which is a sheet of one label. Lengths are inches, from
// the top left corner of the paper.
struct LabelSheet {
  Q_DECLARE_TR_FUNCTIONS(postwright::addressbook::LabelSheet)

 public:
  // The sheets that are sold, by their product numbers, and the envelopes; the most common one
  // first.
  static const QList<LabelSheet>& all();

  // Which of `own` and then of all() has this name or product number, the most common one where
  // there is none.
  static LabelSheet named(const QString& name, const QList<LabelSheet>& own = {});

  QSizeF paperSize() const;
  bool isEnvelope() const { return paper == Paper::Envelope10 || paper == Paper::Envelope634; }

  // The paper as a printer takes it, without margins: an envelope goes in with its short side
  // first.
  QPageLayout pageLayout() const;

  // "5160, 8160: 1 x 2-5/8 in, 30 a sheet", in the user's language.
  QString title() const;

  int size() const { return columns * rows; }

  // Where a label is; labels are counted from 0, row by row.
  QRectF place(int index) const;

  // Why nothing can be printed on such a sheet: labels that overlap or leave the paper. Empty where
  // all is well.
  QString problem() const;

  // Where the address stands on a label, from its corner. On an envelope that is the area that the
  // Postal Service's readers look at, without the corner that they print in: from 5/8 to 2-3/4 inch
  // above the lower edge, half an inch from the right one (DMM 202.2.1).
  QRectF addressArea(bool hasSender) const;

  // Where the return address stands: upper left. Empty where a label has no room for one.
  QRectF senderArea() const;

  QString name = {};              // what the settings know it by, for good
  QStringList otherNumbers = {};  // other product numbers of the same measures
  Paper paper = Paper::Letter;
  int columns = 1;
  int rows = 1;
  QSizeF label = {};
  QPointF first = {};  // top left corner of the first label
  QSizeF pitch = {};   // from a label to its neighbours
};

// Millimetres on the papers that are measured so.
bool isMetric(Paper paper);
inline constexpr double kMillimetresPerInch = 25.4;

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_SHEET_LABELSHEET_H_
