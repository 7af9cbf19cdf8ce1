#include "apps/tables/CsvWriter.h"

#include <algorithm>

#include "apps/tables/CsvReader.h"

namespace postwright::tables {

namespace {

bool needsQuotes(const QString& text, char delimiter) {
  const auto isSpecial = [delimiter](QChar c) {
    return c == QLatin1Char(delimiter) || c == QLatin1Char('"') || c == QLatin1Char('\n') ||
           c == QLatin1Char('\r');
  };
  return std::any_of(text.begin(), text.end(), isSpecial) || text.trimmed() != text;
}

}  // namespace

QByteArray csvCell(const QString& text, char delimiter, CsvQuotes quotes) {
  const QByteArray utf8 = text.toUtf8();
  if (quotes == CsvQuotes::WhereNeeded && !needsQuotes(text, delimiter)) {
    return utf8;
  }
  QByteArray quoted = utf8;
  quoted.replace("\"", "\"\"");
  return '"' + quoted + '"';
}

QByteArray csvRow(const QStringList& cells, char delimiter) {
  if (cells.size() == 1 && cells.first().isEmpty()) {
    return "\"\"";  // nothing at all would be a blank line and no row
  }
  QByteArray row;
  for (qsizetype column = 0; column < cells.size(); ++column) {
    if (column > 0) {
      row += delimiter;
    }
    row += csvCell(cells[column], delimiter);
  }
  return row;
}

QByteArray csvRowWith(const QByteArray& row, const QStringList& cells, char delimiter) {
  const CsvRow read = CsvReader(delimiter).first(row);
  const QStringList& old = read.cells;
  const QList<TextRange>& ranges = read.ranges;
  // A mark that nothing closes would be closed by those of a changed cell.
  const bool allAnew = read.isBroken && cells != old;
  const bool isBlank = cells.size() == 1 && cells.first().isEmpty();  // would be no row
  QByteArray changed;
  qsizetype copied = 0;
  for (qsizetype column = 0; column < ranges.size(); ++column) {
    if (allAnew || cells.value(column) != old.value(column)) {
      const TextRange& range = ranges[column];
      const bool wasQuoted = row.sliced(range.begin, range.size()).trimmed().startsWith('"');
      changed += row.sliced(copied, range.begin - copied);
      changed += csvCell(cells.value(column), delimiter,
                         wasQuoted || isBlank ? CsvQuotes::Always : CsvQuotes::WhereNeeded);
      copied = range.end;
    }
  }
  const qsizetype end = ranges.isEmpty() ? 0 : ranges.last().end;
  changed += row.sliced(copied, end - copied);
  for (qsizetype column = ranges.size(); column < cells.size(); ++column) {
    changed += delimiter + csvCell(cells[column], delimiter);
  }
  return changed + row.sliced(end);
}

}  // namespace postwright::tables
