#include "apps/addressbook/formats/csv/CsvFile.h"

#include <algorithm>

#include "apps/addressbook/book/BookFormat.h"
#include "apps/addressbook/formats/rows/ColumnMemory.h"
#include "apps/tables/CsvWriter.h"
#include "apps/tables/FileError.h"
#include "apps/tables/FormulaGuard.h"
#include "apps/tables/TableGuess.h"

namespace postwright::addressbook {

namespace {

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
  choose(guess({delimiter, true, 0, {}}));
}

CsvFile::CsvFile(tables::TextFile text)
    : _text(std::move(text)), _guessed(_text.encoding), _lineBreak(lineBreakOf(_text.utf8)) {
  tables::TableChoice choice = tables::guessTable(_text.utf8);
  choice.encoding = _text.encoding;
  choose(choice);
  _key = headerText();
  _rowsAbove = choice.skippedRows;
  if (const std::optional<tables::TableChoice> known = ColumnMemory::find(_key)) {
    choice.delimiter = known->delimiter;
    choice.hasHeader = known->hasHeader;
    choice.skippedRows = std::max(_rowsAbove + known->skippedRows, 0);
    choice.addresses = known->addresses;
    const bool isGuessed = _text.encoding == tables::TextEncoding::Windows1252;
    choice.encoding = isGuessed ? known->encoding : _text.encoding;
    choose(choice);
  }
}

// UTF-8 and UTF-16 as the bytes have them, and those of single bytes, in which any file can be
// read.
QList<tables::TextEncoding> CsvFile::encodings() const {
  const bool hasMark = _guessed == tables::TextEncoding::Utf8WithMark;
  return {hasMark ? _guessed : tables::TextEncoding::Utf8,
          tables::isUtf16(_guessed) ? _guessed : tables::TextEncoding::Utf16LittleEndianBare,
          tables::TextEncoding::Windows1252, tables::TextEncoding::MacRoman};
}

tables::TextFile CsvFile::textIn(tables::TextEncoding encoding) const {
  QStringList notes;
  return encoding == _text.encoding ? _text : tables::TextFile::of(_text.bytes(notes), encoding);
}

QStringList CsvFile::header() const {
  return _choice.hasHeader ? _header : columnLetters(_header.size());
}

QStringList CsvFile::cells(int row) const {
  return tables::CsvReader(_choice.delimiter).firstRow(_rows[row].of(_text.utf8));
}

QByteArray CsvFile::headerText() const {
  const tables::TextRange& range =
      _choice.hasHeader || _rows.isEmpty() ? _headerRange : _rows.first();
  const QByteArray text = range.of(_text.utf8).trimmed();
  // What is above the header differs from file to file.
  const QByteArrayView last =
      tables::CsvReader(_choice.delimiter).first(text).range.size() == text.size()
          ? QByteArrayView(text)
          : QByteArrayView(text).sliced(text.lastIndexOf('\n') + 1);
  return last.toByteArray();
}

// The columns that the program itself writes need no answer.
bool CsvFile::needsChoice() const {
  return _header != newHeader() && !ColumnMemory::find(_key);
}

void CsvFile::rememberChoice() const {
  tables::TableChoice kept = _choice;
  kept.skippedRows -= _rowsAbove;
  ColumnMemory::remember(_key, kept);
}

tables::TableChoice CsvFile::guess(const tables::TableChoice& choice) const {
  return tables::guessColumnsOf(textIn(choice.encoding).utf8, choice);
}

// What is read by a choice takes the place of what was read before as a whole, or not at all.
void CsvFile::choose(const tables::TableChoice& choice) {
  CsvFile read(textIn(choice.encoding), choice, _lineBreak);
  _text = read._text;
  _choice = read._choice;
  _header = read._header;
  _headerRange = read._headerRange;
  _rows = read._rows;
  _entries = read._entries;
  _brokenRows = read._brokenRows;
  _firstBrokenLine = read._firstBrokenLine;
}

CsvFile::CsvFile(tables::TextFile text, const tables::TableChoice& choice, QByteArray lineBreak)
    : _text(std::move(text)), _choice(choice), _lineBreak(std::move(lineBreak)) {
  int above = choice.skippedRows;
  qsizetype firstBroken = 0;
  tables::CsvReader(choice.delimiter).readRows(_text.utf8, [&](const tables::CsvRow& row) {
    if (row.isBroken && _brokenRows++ == 0) {
      firstBroken = row.range.begin;
    }
    if (above-- > 0) {
      _headerRange = {0, row.range.end};
      return true;
    }
    if (_header.isEmpty()) {
      _header = row.cells;
      takeHeader();
      if (_choice.hasHeader) {
        _headerRange = {0, row.range.end};
        return true;
      }
    }
    _rows.append(row.range);
    _entries.takeRow(row.cells);
    return true;
  });
  if (_header.isEmpty()) {
    throw tables::FileError(
        tr("The file is empty. A CSV file begins with a line that names its columns."));
  }
  _firstBrokenLine = _text.utf8.first(firstBroken).count('\n') + 1;
}

void CsvFile::takeHeader() {
  for (tables::AddressColumns& address : _choice.addresses) {
    QList<tables::ColumnRole> roles = address.mapping.roles();
    roles.resize(_header.size());
    address.mapping = tables::ColumnMapping(roles);
  }
  _entries = RowEntries(_choice.addresses);
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

QStringList CsvFile::write(const QString& path, const QList<Entry>& entries) {
  QStringList notes;
  const QByteArray text = compose(entries, notes);
  return tables::TextFile{text, _text.encoding}.write(path) + notes;
}

QStringList CsvFile::writeForSpreadsheet(const QString& path, const QList<Entry>& entries) const {
  QStringList notes;
  // Spreadsheet programs know UTF-8 by its mark alone.
  tables::TextFile{tables::guardFormulas(compose(entries, notes), _choice.delimiter),
                   tables::TextEncoding::Utf8WithMark}
      .write(path);
  return notes;
}

QByteArray CsvFile::compose(const QList<Entry>& entries, QStringList& notes) const {
  RowEntries::Changes changes(_entries, entries);
  QByteArray text;
  text.reserve(_text.utf8.size());
  text = _headerRange.of(_text.utf8);
  for (const tables::TextRange& range : _rows) {
    const QByteArray row = range.of(_text.utf8);
    const RowEntries::Changes::Fate fate =
        changes.next([&] { return tables::CsvReader(_choice.delimiter).firstRow(row); });
    if (!fate.isRemoved) {
      endLine(text);
      text += fate.cells ? tables::csvRowWith(row, *fate.cells, _choice.delimiter) : row;
    }
  }
  for (const QStringList& cells : changes.added()) {
    endLine(text);
    text += tables::csvRow(cells, _choice.delimiter) + _lineBreak;
  }
  notes += changes.notes();
  const qsizetype end = _rows.isEmpty() ? _headerRange.end : _rows.last().end;
  return text + _text.utf8.sliced(end);  // blank lines after the last row
}

// What was the last row may have had no line break.
void CsvFile::endLine(QByteArray& text) const {
  if (!text.isEmpty() && !isLineBreak(text.back())) {
    text += _lineBreak;
  }
}

}  // namespace postwright::addressbook
