#ifndef POSTWRIGHT_APPS_WORKBOOK_NUMBERFORMATS_H_
#define POSTWRIGHT_APPS_WORKBOOK_NUMBERFORMATS_H_

#include <QByteArray>
#include <QList>
#include <QString>

#include "apps/workbook/Workbook.h"

namespace postwright::workbook {

// How the cells of an Office Open XML workbook show their numbers (ISO/IEC 29500-1, 18.8).
class NumberFormats {
 public:
  // Shown and stored as what a label can hold, or kept as it is.
  struct Shown {
    QString text;
    CellKind kind = CellKind::Number;
  };

  NumberFormats() = default;
  // Reads the part with the styles. Throws FileError.
  explicit NumberFormats(const QByteArray& styles);

  // What a cell of a style shows of a number as it is stored: "02134" for 2134 in the format 00000,
  // the day of a date, and otherwise the number itself.
  Shown show(const QString& stored, int style, bool isFrom1904) const;

 private:
  enum class Kind { General, Digits, Date, Other };
  struct Format {
    Kind kind = Kind::General;
    QString code;
  };

  static Format formatOf(int id, const QString& code);

  QList<Format> _byStyle;
};

}  // namespace postwright::workbook

#endif  // POSTWRIGHT_APPS_WORKBOOK_NUMBERFORMATS_H_
