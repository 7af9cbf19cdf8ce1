#include "apps/workbook/Workbook.h"

#include <QHash>
#include <algorithm>

#include "apps/tables/FileError.h"
#include "apps/workbook/OdsWorkbook.h"
#include "apps/workbook/XlsxWorkbook.h"

namespace postwright::workbook {

namespace {

constexpr int kLetters = 26;

QString written(const QString& cell) {
  return QString(cell).replace(QLatin1String("\r\n"), QLatin1String("\n"));
}

// Cells are the same where they differ in empty ones at the end alone.
bool areSame(const QStringList& a, const QStringList& b) {
  for (qsizetype column = 0; column < std::max(a.size(), b.size()); ++column) {
    if (written(a.value(column)) != written(b.value(column))) {
      return false;
    }
  }
  return true;
}

}  // namespace

std::unique_ptr<Workbook> Workbook::open(QByteArray file) {
  ZipParts parts(std::move(file));
  if (OdsWorkbook::isOne(parts)) {
    return std::make_unique<OdsWorkbook>(std::move(parts));
  }
  if (XlsxWorkbook::isOne(parts)) {
    return std::make_unique<XlsxWorkbook>(std::move(parts));
  }
  throw tables::FileError(
      tr("This is an archive, not a workbook that can be read. Save it as .xlsx or as CSV in the "
         "program that made it, and open that."));
}

QByteArray Workbook::with(int sheet, const QList<RowChange>& changes,
                          const QList<QStringList>& added) const {
  QByteArray file = edited(sheet, changes, added);
  const QList<SheetRow> now = open(file)->rows(sheet);
  QHash<int, const SheetRow*> byNumber;
  for (const SheetRow& row : now) {
    byNumber.insert(row.number, &row);
  }
  const auto isWritten = [&byNumber](const RowChange& change) {
    const SheetRow* const row = byNumber.value(change.number);
    return !change.cells || areSame(*change.cells, row != nullptr ? row->cells : QStringList());
  };
  if (!std::all_of(changes.begin(), changes.end(), isWritten)) {
    throw tables::FileError(
        tr("The sheet cannot be changed so that it reads as it should. Save the address book as "
           "CSV; the workbook stays as it is."));
  }
  return file;
}

QString columnLetters(int column) {
  QString letters;
  for (int rest = column + 1; rest > 0; rest = (rest - 1) / kLetters) {
    letters.prepend(QChar(u'A' + static_cast<char16_t>((rest - 1) % kLetters)));
  }
  return letters;
}

void failKept(int row, int column) {
  throw tables::FileError(
      Workbook::tr("Cell %1%2 holds a formula, a date or an amount, which is never written over. "
                   "Put its text in the cell with a spreadsheet program, or save the address book "
                   "as CSV.")
          .arg(columnLetters(column))
          .arg(row + 1));
}

void failTooLarge() {
  throw tables::FileError(
      Workbook::tr("The sheet has more than four million cells, or more rows or columns than a "
                   "spreadsheet can hold. Save what you need of it as CSV, and open that."));
}

void failDamagedSheet() {
  throw tables::FileError(
      Workbook::tr("The workbook is damaged: a part that it names is missing or does not fit the "
                   "others. Open it in the program that made it and save it again."));
}

}  // namespace postwright::workbook
