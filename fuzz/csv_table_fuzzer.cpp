// Bytes of a table, into the reader of CSV. The rows make up the whole text; a row alone reads as
// it does among the others; written again it is the same byte for byte, and with a cell changed it
// reads as that. The first line of an input is its delimiter and the new cell.

#include <algorithm>

#include "apps/tables/CsvReader.h"
#include "apps/tables/CsvWriter.h"
#include "apps/tables/FileError.h"
#include "apps/tables/FormulaGuard.h"
#include "apps/tables/TextFile.h"
#include "fuzz/InputText.h"
#include "fuzz/Require.h"

namespace {

using namespace postwright;
using namespace postwright::tables;
using fuzz::Require;

void CheckChange(const QByteArray& row, QStringList cells, const QString& cell, char delimiter) {
  const CsvReader reader(delimiter);
  Require(csvRowWith(row, cells, delimiter) == row, "a row written again is the same");
  cells[cells.size() / 2] = cell;
  Require(reader.firstRow(csvRowWith(row, cells, delimiter)) == cells,
          "a row with a cell changed reads as that");
}

void CheckRows(const QByteArray& text, const QString& cell, char delimiter) {
  const CsvReader reader(delimiter);
  qsizetype end = 0;
  reader.readRows(text, [&](const CsvRow& row) {
    Require(row.range.begin == end && row.range.end > end, "a row begins where the last one ends");
    end = row.range.end;
    Require(!row.cells.isEmpty() && row.cells.size() == row.ranges.size(), "each cell has a place");
    const QByteArray alone = row.range.of(text);
    Require(reader.firstRow(alone) == row.cells, "a row reads the same by itself");
    CheckChange(alone, row.cells, cell, delimiter);
    return true;
  });
  Require(QByteArray::fromRawData(text.data() + end, text.size() - end).trimmed().isEmpty(),
          "there is nothing after the last row");
}

QList<QStringList> RowsOf(const QByteArray& text, char delimiter) {
  QList<QStringList> rows;
  CsvReader(delimiter).readRows(text, [&](const CsvRow& row) {
    rows.append(row.cells);
    return true;
  });
  return rows;
}

void CheckGuard(const QByteArray& text, char delimiter) {
  const QList<QStringList> rows = RowsOf(text, delimiter);
  const QList<QStringList> guarded = RowsOf(guardFormulas(text, delimiter), delimiter);
  Require(rows.size() == guarded.size(), "guarding keeps the rows");
  for (qsizetype row = 0; row < rows.size(); ++row) {
    Require(rows[row].size() == guarded[row].size(), "guarding keeps the cells");
    for (qsizetype column = 0; column < rows[row].size(); ++column) {
      const QString& now = guarded[row][column];
      Require(now == rows[row][column] || now == QLatin1Char('\'') + rows[row][column],
              "a guarded cell has an apostrophe and nothing else new");
      const auto first = std::find_if(now.begin(), now.end(), [](QChar c) { return c != u' '; });
      Require(first == now.end() || !QStringView(u"=+-@").contains(*first), "no cell is a formula");
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view input = fuzz::TextOf(data, size);
  const std::string_view head = input.substr(0, input.find('\n'));
  input.remove_prefix(std::min(input.size(), head.size() + 1));
  const bool isGiven = !head.empty() && CsvReader::isDelimiter(head.front());
  const char delimiter = isGiven ? head.front() : ',';
  const QString cell =
      QString::fromUtf8(head.data() + (isGiven ? 1 : 0), head.size() - (isGiven ? 1 : 0));
  const QByteArray bytes(input.data(), static_cast<qsizetype>(input.size()));
  try {
    const TextFile file = TextFile::of(bytes);
    QStringList notes;
    Require(file.bytes(notes) == bytes && notes.isEmpty(), "a text written again is the same");
    CheckRows(file.utf8, cell, delimiter);
    CheckGuard(file.utf8, delimiter);
  } catch (const FileError&) {
    return 0;  // not text, and refused as such
  }
  return 0;
}
