#include "apps/addressbook/formats/csv/CsvFile.h"

#include "apps/addressbook/book/BookFormat.h"
#include "apps/addressbook/formats/csv/ColumnMemory.h"
#include "apps/tables/CsvWriter.h"
#include "apps/tables/FileError.h"
#include "apps/tables/FormulaGuard.h"

namespace postwright::addressbook {

namespace {

QStringList newHeader() {
  return QStringLiteral("Name,Company,Address 1,Address 2,City,State,ZIP").split(QLatin1Char(','));
}

bool isLineBreak(char c) {
  return c == '\n' || c == '\r';
}

// The line break that ends the first line; that of the standard (RFC 4180) where there is none.
QByteArray lineBreakOf(const QByteArray& text) {
  const auto* const end = std::find_if(text.begin(), text.end(), isLineBreak);
  if (end == text.end()) {
    return "\r\n";
  }
  const bool isPair = *end == '\r' && end + 1 != text.end() && end[1] == '\n';
  return QByteArray(end, isPair ? 2 : 1);
}

}  // namespace

// The text of a file that is being written.
struct CsvFile::Output {
  QByteArray text;
  int wholeLabels = 0;  // those that would not divide into columns
};

const BookFormat& CsvFile::bookFormat() {
  static const BookFormat format = {
      [] { return tr("CSV file"); },
      {QStringLiteral("csv"), QStringLiteral("tsv"), QStringLiteral("txt")},
      {QStringLiteral("text/csv"), QStringLiteral("text/tab-separated-values")},
      [](const FileHead&) { return true; },  // any text may be one
      [](const QString& path) -> std::unique_ptr<BookFile> {
        return std::make_unique<CsvFile>(tables::TextFile::read(path));
      },
      [](const QString& path) -> std::unique_ptr<BookFile> {
        return std::make_unique<CsvFile>(path.endsWith(u".tsv", Qt::CaseInsensitive) ? '\t' : ',');
      }};
  return format;
}

CsvFile::CsvFile(char delimiter) {
  _text.utf8 = tables::csvRow(newHeader(), delimiter) + _lineBreak;
  choose({delimiter, tables::ColumnMapping::guess(newHeader())});
}

CsvFile::CsvFile(tables::TextFile text)
    : _text(std::move(text)), _lineBreak(lineBreakOf(_text.utf8)) {
  if (const std::optional<tables::TableChoice> known = ColumnMemory::find(firstLine())) {
    choose(*known);
    return;
  }
  const char delimiter = tables::CsvReader::guessDelimiter(_text.utf8);
  const QStringList header = tables::CsvReader(delimiter).firstRow(_text.utf8);
  choose({delimiter, tables::ColumnMapping::guess(header)});
}

QStringList CsvFile::cells(int row) const {
  return tables::CsvReader(_choice.delimiter).firstRow(_rows[row].of(_text.utf8));
}

QByteArray CsvFile::firstLine() const {
  const auto* const end = std::find_if(_text.utf8.begin(), _text.utf8.end(), isLineBreak);
  return _text.utf8.first(end - _text.utf8.begin());
}

// The columns that the program itself writes need no answer.
bool CsvFile::needsChoice() const {
  return _header != newHeader() && !ColumnMemory::find(firstLine());
}

void CsvFile::rememberChoice() const {
  ColumnMemory::remember(firstLine(), _choice);
}

tables::TableChoice CsvFile::guess(const tables::TableChoice& choice) const {
  const QStringList header = tables::CsvReader(choice.delimiter).firstRow(_text.utf8);
  return {choice.delimiter, tables::ColumnMapping::guess(header)};
}

void CsvFile::choose(const tables::TableChoice& choice) {
  QStringList header;
  tables::TextRange headerRange;
  tables::ColumnMapping mapping;
  QList<tables::TextRange> rows;
  QStringList labels;
  int brokenRows = 0;
  qsizetype firstBroken = 0;
  tables::CsvReader(choice.delimiter).readRows(_text.utf8, [&](const tables::CsvRow& row) {
    if (row.isBroken && brokenRows++ == 0) {
      firstBroken = row.range.begin;
    }
    if (header.isEmpty()) {
      header = row.cells;
      headerRange = row.range;
      QList<tables::ColumnRole> roles = choice.mapping.roles();
      roles.resize(header.size());
      mapping = tables::ColumnMapping(roles);
    } else {
      rows.append(row.range);
      labels.append(mapping.compose(row.cells));
    }
    return true;
  });
  if (header.isEmpty()) {
    throw tables::FileError(
        tr("The file is empty. A CSV file begins with a line that names its columns."));
  }
  _choice = {choice.delimiter, mapping};
  _header = header;
  _headerRange = headerRange;
  _rows = rows;
  _labels = labels;
  _brokenRows = brokenRows;
  _firstBrokenLine = _text.utf8.first(firstBroken).count('\n') + 1;
}

QStringList CsvFile::notes() const {
  if (_brokenRows == 0) {
    return {};
  }
  return {
      tr("In %n rows a quotation mark is opened and not closed, first on line %1. Each was read "
         "to the end of its line; look at them before you print.",
         nullptr, _brokenRows)
          .arg(_firstBrokenLine)};
}

QList<Entry> CsvFile::entries() const {
  QList<Entry> entries;
  entries.reserve(_labels.size());
  for (const QString& label : _labels) {
    entries.append({entries.size() + 1, label, {}});
  }
  return entries;
}

QStringList CsvFile::write(const QString& path, const QList<Entry>& entries) {
  const Output output = compose(entries);
  return tables::TextFile{output.text, _text.encoding}.write(path) + notesOn(output);
}

QStringList CsvFile::writeForSpreadsheet(const QString& path, const QList<Entry>& entries) const {
  const Output output = compose(entries);
  // Spreadsheet programs know UTF-8 by its mark alone.
  tables::TextFile{tables::guardFormulas(output.text, _choice.delimiter),
                   tables::TextEncoding::Utf8WithMark}
      .write(path);
  return notesOn(output);
}

CsvFile::Output CsvFile::compose(const QList<Entry>& entries) const {
  Output output;
  output.text.reserve(_text.utf8.size());
  output.text = _headerRange.of(_text.utf8);
  for (const Entry& entry : entries) {
    appendRow(output, entry);
  }
  const qsizetype end = _rows.isEmpty() ? _headerRange.end : _rows.last().end;
  output.text += _text.utf8.sliced(end);  // blank lines behind the last row
  return output;
}

void CsvFile::appendRow(Output& output, const Entry& entry) const {
  if (!isLineBreak(output.text.back())) {
    output.text += _lineBreak;  // what was the last row had none
  }
  if (entry.id > _rows.size()) {
    output.text += newRow(entry.label, output.wholeLabels) + _lineBreak;
    return;
  }
  const QByteArray row = _rows[entry.id - 1].of(_text.utf8);
  output.text +=
      entry.label == _labels[entry.id - 1] ? row : changedRow(row, entry.label, output.wholeLabels);
}

QByteArray CsvFile::changedRow(const QByteArray& row, const QString& label,
                               int& wholeLabels) const {
  const QStringList cells = tables::CsvReader(_choice.delimiter).firstRow(row);
  const tables::ColumnMapping::Division division = _choice.mapping.divide(label, cells);
  wholeLabels += division.isWhole ? 1 : 0;
  return tables::csvRowWith(row, division.cells, _choice.delimiter);
}

QByteArray CsvFile::newRow(const QString& label, int& wholeLabels) const {
  const tables::ColumnMapping::Division division = _choice.mapping.divide(label, {});
  wholeLabels += division.isWhole ? 1 : 0;
  return tables::csvRow(division.cells, _choice.delimiter);
}

QStringList CsvFile::notesOn(const Output& output) const {
  if (output.wholeLabels == 0) {
    return {};
  }
  return {
      tr("%n labels could not be divided into the columns of the file. Each stands whole in "
         "one cell, line below line; nothing is lost.",
         nullptr, output.wholeLabels)};
}

}  // namespace postwright::addressbook
