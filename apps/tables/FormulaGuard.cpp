#include "apps/tables/FormulaGuard.h"

#include "apps/tables/CsvReader.h"
#include "apps/tables/CsvWriter.h"

namespace postwright::tables {

namespace {

// The wide forms of the signs count too: spreadsheets in East Asian settings take them.
constexpr QStringView kFormulaSigns = u"=+-@\t\r\uFF1D\uFF0B\uFF0D\uFF20";

bool isFormula(const QString& cell) {
  const auto first =
      std::find_if(cell.begin(), cell.end(), [](QChar c) { return c != QLatin1Char(' '); });
  return first != cell.end() && kFormulaSigns.contains(*first);
}

}  // namespace

QByteArray guardFormulas(const QByteArray& csv, char delimiter) {
  const CsvReader reader(delimiter);
  QByteArray guarded;
  guarded.reserve(csv.size());
  qsizetype copied = 0;
  reader.readRows(csv, [&](const CsvRow& row) {
    if (std::none_of(row.cells.begin(), row.cells.end(), isFormula)) {
      return true;
    }
    if (row.isBroken) {  // the marks of a cell would close the one that is open
      QStringList cells = row.cells;
      for (QString& cell : cells) {
        cell.prepend(isFormula(cell) ? QStringLiteral("'") : QString());
      }
      guarded += QByteArrayView(csv).sliced(copied, row.range.begin - copied);
      guarded += csvRowWith(row.range.of(csv), cells, delimiter);
      copied = row.range.end;
      return true;
    }
    for (qsizetype column = 0; column < row.ranges.size(); ++column) {
      if (isFormula(row.cells[column])) {
        const qsizetype begin = row.ranges[column].begin;
        guarded += QByteArrayView(csv).sliced(copied, begin - copied);
        guarded += csvCell(QLatin1Char('\'') + row.cells[column], delimiter, CsvQuotes::Always);
        copied = row.ranges[column].end;
      }
    }
    return true;
  });
  guarded += QByteArrayView(csv).sliced(copied);
  return guarded;
}

}  // namespace postwright::tables
