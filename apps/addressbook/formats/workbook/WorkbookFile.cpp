#include "apps/addressbook/formats/workbook/WorkbookFile.h"

#include <QFile>
#include <QFileInfo>
#include <algorithm>

#include "apps/addressbook/formats/rows/ColumnMemory.h"
#include "apps/tables/CsvWriter.h"
#include "apps/tables/FileError.h"
#include "apps/tables/FormulaGuard.h"
#include "apps/tables/ReplacementFile.h"
#include "apps/tables/TableGuess.h"
#include "apps/tables/TextFile.h"
#include "apps/workbook/OdsWorkbook.h"
#include "apps/workbook/XlsxWorkbook.h"

namespace postwright::addressbook {

namespace {

const QByteArray kArchive = "PK\x03\x04";
const QByteArray kOdsMark = "mimetypeapplication/vnd.oasis.opendocument";
constexpr qsizetype kNameInArchive = 30;  // where the name of its first member stands

constexpr qsizetype kZipDigits = 5;
constexpr qsizetype kZipPlusDigits = 9;
constexpr int kMostSheets = 10;  // that are looked into
constexpr int kLostZeros = 2;    // no ZIP code begins with more

bool isArchive(const FileHead& head) {
  return head.bytes.startsWith(kArchive);
}

bool isOds(const FileHead& head) {
  return isArchive(head) && head.bytes.mid(kNameInArchive).startsWith(kOdsMark);
}

QByteArray bytesOf(const QString& path) {
  tables::ReplacementFile::removeLeftovers(path);
  QFile file(path);
  if (file.size() > WorkbookFile::kLargest) {
    throw tables::FileError(WorkbookFile::tr(
        "The workbook is larger than 128 MiB. Save the sheet as CSV, and open that."));
  }
  const QByteArray bytes = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  if (file.error() != QFileDevice::NoError) {
    throw tables::FileError(
        tables::TextFile::tr("The file cannot be read: %1.").arg(file.errorString()));
  }
  return bytes;
}

// A ZIP code as it was before a spreadsheet took it for a number.
QString withZeros(const QString& number) {
  const bool isNumber =
      std::all_of(number.begin(), number.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
  const qsizetype whole = number.size() > kZipDigits ? kZipPlusDigits : kZipDigits;
  if (!isNumber || number.size() >= whole || number.size() < whole - kLostZeros) {
    return number;
  }
  const QString digits = number.rightJustified(whole, u'0');
  return whole == kZipDigits ? digits : digits.first(kZipDigits) + u'-' + digits.sliced(kZipDigits);
}

}  // namespace

const BookFormat& WorkbookFile::xlsxFormat() {
  static const BookFormat format = {
      [] { return tr("Excel workbook"); },
      {QStringLiteral("xlsx"), QStringLiteral("xlsm")},
      {QStringLiteral("application/vnd.openxmlformats-officedocument.spreadsheetml.sheet"),
       QStringLiteral("application/vnd.ms-excel.sheet.macroEnabled.12")},
      [](const FileHead& head) { return isArchive(head) && !isOds(head); },
      [](const QString& path) -> std::unique_ptr<BookFile> {
        return std::make_unique<WorkbookFile>(xlsxFormat(), bytesOf(path));
      },
      [](const QString&) -> std::unique_ptr<BookFile> {
        return std::make_unique<WorkbookFile>(xlsxFormat(), workbook::XlsxWorkbook::make());
      },
      false};
  return format;
}

const BookFormat& WorkbookFile::odsFormat() {
  static const BookFormat format = {
      [] { return tr("OpenDocument spreadsheet"); },
      {QStringLiteral("ods")},
      {QStringLiteral("application/vnd.oasis.opendocument.spreadsheet")},
      isOds,
      [](const QString& path) -> std::unique_ptr<BookFile> {
        return std::make_unique<WorkbookFile>(odsFormat(), bytesOf(path));
      },
      [](const QString&) -> std::unique_ptr<BookFile> {
        return std::make_unique<WorkbookFile>(odsFormat(), workbook::OdsWorkbook::make());
      },
      false};
  return format;
}

// The sheet is the first whose columns are known from earlier, else the first that holds something.
WorkbookFile::WorkbookFile(const BookFormat& format, QByteArray bytes)
    : _format(format), _workbook(workbook::Workbook::open(std::move(bytes))) {
  const int sheets = std::min(static_cast<int>(_workbook->sheets().size()), kMostSheets);
  int filled = -1;
  for (int sheet = 0; sheet < sheets && (_key.isEmpty() || !ColumnMemory::find(_key)); ++sheet) {
    take(sheet);
    filled = filled < 0 && !_rows.isEmpty() ? sheet : filled;
  }
  if (!ColumnMemory::find(_key) && filled >= 0 && filled != _choice.sheet) {
    take(filled);
  }
}

// Reads a sheet as it was chosen for its header earlier, or as it looks.
void WorkbookFile::take(int sheet) {
  tables::TableChoice choice;
  choice.sheet = sheet;
  choice = guess(choice);
  choose(choice);
  _rowsAbove = choice.skippedRows;
  _key = tables::csvRow(_header, ',');
  if (const std::optional<tables::TableChoice> known = ColumnMemory::find(_key)) {
    choice.hasHeader = known->hasHeader;
    choice.skippedRows = std::max(_rowsAbove + known->skippedRows, 0);
    choice.addresses = known->addresses;
    choose(choice);
  }
}

// A new book has no row yet: its header is the program's own.
QStringList WorkbookFile::header() const {
  return _choice.hasHeader ? _header : columnLetters(_header.size());
}

QStringList WorkbookFile::cells(int row) const {
  return withZeros(_rows[_firstRow + row], zipColumns());
}

QString WorkbookFile::label(int row, const tables::ColumnMapping& mapping) const {
  QSet<int> zips;
  for (int column = 0; column < mapping.roles().size(); ++column) {
    if (mapping.roles()[column] == tables::ColumnRole::Zip) {
      zips.insert(column);
    }
  }
  return mapping.compose(withZeros(_rows[_firstRow + row], zips));
}

QSet<int> WorkbookFile::zipColumns() const {
  QSet<int> columns;
  for (const tables::AddressColumns& address : _choice.addresses) {
    const QList<tables::ColumnRole>& roles = address.mapping.roles();
    for (int column = 0; column < roles.size(); ++column) {
      if (roles[column] == tables::ColumnRole::Zip) {
        columns.insert(column);
      }
    }
  }
  return columns;
}

QStringList WorkbookFile::withZeros(const workbook::SheetRow& row,
                                    const QSet<int>& zipColumns) const {
  QStringList cells = row.cells;
  for (int column = 0; column < cells.size(); ++column) {
    if (row.kinds[column] == workbook::CellKind::Number && zipColumns.contains(column)) {
      cells[column] = addressbook::withZeros(cells[column]);
    }
  }
  return cells;
}

bool WorkbookFile::needsChoice() const {
  return _header != newHeader() && !ColumnMemory::find(_key);
}

void WorkbookFile::rememberChoice() const {
  tables::TableChoice kept = _choice;
  kept.skippedRows -= _rowsAbove;
  ColumnMemory::remember(_key, kept);
}

const QList<workbook::SheetRow>& WorkbookFile::rowsOf(int sheet) const {
  if (_readSheet != sheet) {
    _readRows = _workbook->rows(sheet);
    _readSheet = sheet;
  }
  return _readRows;
}

tables::TableChoice WorkbookFile::guess(const tables::TableChoice& choice) const {
  QList<QStringList> rows;
  const QList<workbook::SheetRow>& read = rowsOf(choice.sheet);
  for (const workbook::SheetRow& row :
       read.first(std::min<qsizetype>(read.size(), tables::kGuessedRows + choice.skippedRows))) {
    rows.append(row.cells);
  }
  if (rows.isEmpty()) {
    rows.append(newHeader());
  }
  // Another sheet is guessed from its beginning.
  const bool isKnown = choice.sheet == _choice.sheet && !choice.addresses.isEmpty();
  tables::TableChoice guessed =
      isKnown ? tables::guessColumnsOf(rows, choice) : tables::guessTableOf(rows);
  guessed.sheet = choice.sheet;
  return guessed;
}

void WorkbookFile::choose(const tables::TableChoice& choice) {
  const QList<workbook::SheetRow>& rows = rowsOf(choice.sheet);
  if (!rows.isEmpty() && choice.skippedRows >= rows.size()) {
    throw tables::FileError(tr("The sheet has no more rows than are skipped."));
  }
  _header = rows.isEmpty() ? newHeader() : rows[choice.skippedRows].cells;
  _choice = choice;
  _rows = rows;
  _firstRow = _rows.isEmpty() ? 0 : _choice.skippedRows + (_choice.hasHeader ? 1 : 0);
  qsizetype width = _header.size();
  for (const workbook::SheetRow& row : _rows) {
    width = std::max(width, row.cells.size());
  }
  _header.resize(width);
  for (tables::AddressColumns& address : _choice.addresses) {
    QList<tables::ColumnRole> roles = address.mapping.roles();
    roles.resize(width);
    address.mapping = tables::ColumnMapping(roles);
  }
  _entries = RowEntries(_choice.addresses);
  const QSet<int> zips = zipColumns();
  for (const workbook::SheetRow& row : _rows.sliced(_firstRow)) {
    _entries.takeRow(withZeros(row, zips));
  }
}

QStringList WorkbookFile::write(const QString& path, const QList<Entry>& entries) {
  RowEntries::Changes changes(_entries, entries);
  QList<workbook::RowChange> changed;
  const QSet<int> zips = zipColumns();
  for (const workbook::SheetRow& row : _rows.sliced(_firstRow)) {
    const auto fate = changes.next([&] { return withZeros(row, zips); });
    if (fate.isRemoved) {
      changed.append({row.number, std::nullopt});
    } else if (fate.cells) {
      QStringList cells = *fate.cells;
      for (const int column : zips) {  // a number that only looked otherwise stays as it is
        if (column < row.cells.size() && row.kinds[column] == workbook::CellKind::Number &&
            cells[column] == addressbook::withZeros(row.cells[column])) {
          cells[column] = row.cells[column];
        }
      }
      changed.append({row.number, cells});
    }
  }
  QList<QStringList> added = changes.added();
  if (_rows.isEmpty()) {
    added.prepend(_header);
  }
  tables::ReplacementFile file(path);
  file.write(_workbook->with(_choice.sheet, changed, added));
  file.commit();
  return changes.notes();
}

QStringList WorkbookFile::writeForSpreadsheet(const QString& path,
                                              const QList<Entry>& entries) const {
  RowEntries::Changes changes(_entries, entries);
  const QSet<int> zips = zipColumns();
  QByteArray text = tables::csvRow(header(), ',') + "\r\n";
  for (const workbook::SheetRow& row : _rows.sliced(_firstRow)) {
    const QStringList cells = withZeros(row, zips);
    const auto fate = changes.next([&] { return cells; });
    text +=
        fate.isRemoved ? QByteArray() : tables::csvRow(fate.cells.value_or(cells), ',') + "\r\n";
  }
  for (const QStringList& cells : changes.added()) {
    text += tables::csvRow(cells, ',') + "\r\n";
  }
  tables::TextFile{tables::guardFormulas(text, ','), tables::TextEncoding::Utf8WithMark}.write(
      path);
  return changes.notes();
}

}  // namespace postwright::addressbook
