#include "apps/addressbook/formats/csv/CsvFile.h"

#include <algorithm>

#include "apps/addressbook/book/BookFormat.h"
#include "apps/addressbook/formats/csv/ColumnMemory.h"
#include "apps/tables/ColumnNames.h"
#include "apps/tables/CsvWriter.h"
#include "apps/tables/FileError.h"
#include "apps/tables/FormulaGuard.h"
#include "apps/tables/LabelText.h"
#include "apps/tables/TableGuess.h"

namespace postwright::addressbook {

namespace {

constexpr qsizetype kLetters = 26;

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
  choose(guess({delimiter, true, 0, {}}));
}

CsvFile::CsvFile(tables::TextFile text)
    : _text(std::move(text)), _lineBreak(lineBreakOf(_text.utf8)) {
  tables::TableChoice choice = tables::guessTable(_text.utf8);
  choose(choice);
  if (const std::optional<tables::TableChoice> known = ColumnMemory::find(headerText())) {
    choice.delimiter = known->delimiter;
    choice.hasHeader = known->hasHeader;
    choice.addresses = known->addresses;
    choose(choice);
  }
}

QStringList CsvFile::header() const {
  if (_choice.hasHeader) {
    return _header;
  }
  QStringList letters;
  for (qsizetype column = 0; column < _header.size(); ++column) {
    QString name;
    for (qsizetype rest = column + 1; rest > 0; rest = (rest - 1) / kLetters) {
      name.prepend(QChar(u'A' + static_cast<char16_t>((rest - 1) % kLetters)));
    }
    letters.append(name);
  }
  return letters;
}

QStringList CsvFile::cells(int row) const {
  return tables::CsvReader(_choice.delimiter).firstRow(_rows[row].of(_text.utf8));
}

QByteArray CsvFile::headerText() const {
  const tables::TextRange& range =
      _choice.hasHeader || _rows.isEmpty() ? _headerRange : _rows.first();
  const QByteArray text = range.of(_text.utf8).trimmed();
  // What stands above the header differs from file to file.
  const QByteArrayView last =
      tables::CsvReader(_choice.delimiter).first(text).range.size() == text.size()
          ? QByteArrayView(text)
          : QByteArrayView(text).sliced(text.lastIndexOf('\n') + 1);
  return last.toByteArray();
}

// The columns that the program itself writes need no answer.
bool CsvFile::needsChoice() const {
  return _header != newHeader() && !ColumnMemory::find(headerText());
}

void CsvFile::rememberChoice() const {
  ColumnMemory::remember(headerText(), _choice);
}

tables::TableChoice CsvFile::guess(const tables::TableChoice& choice) const {
  return tables::guessColumnsOf(_text.utf8, choice);
}

// What is read by a choice takes the place of what was read before as a whole, or not at all.
void CsvFile::choose(const tables::TableChoice& choice) {
  CsvFile read(_text, choice, _lineBreak);
  _choice = read._choice;
  _header = read._header;
  _headerRange = read._headerRange;
  _rows = read._rows;
  _slots = read._slots;
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
    takeRow(row.cells);
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
}

// An address that repeats an earlier one of its row is no entry of its own.
void CsvFile::takeRow(const QStringList& cells) {
  const int row = static_cast<int>(_rows.size()) - 1;
  const qsizetype first = _slots.size();
  for (int place = 0; place < _choice.addresses.size(); ++place) {
    const tables::AddressColumns& address = _choice.addresses[place];
    if (_choice.addresses.size() > 1 && !address.mapping.hasAddress(cells)) {
      continue;
    }
    const QString label = address.mapping.compose(cells);
    const bool isRepeated =
        std::any_of(_slots.begin() + first, _slots.end(),
                    [&label](const Slot& slot) { return tables::sameLetters(slot.label, label); });
    if (!isRepeated) {
      const QString told = cells.value(address.kindColumn).remove(QLatin1Char('*')).trimmed();
      _slots.append({row, place, told.isEmpty() ? tables::kindText(address.kind) : told, label});
    }
  }
  if (_slots.size() == first) {
    _slots.append({row, 0, {}, _choice.addresses.first().mapping.compose(cells)});
  }
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
  entries.reserve(_slots.size());
  for (const Slot& slot : _slots) {
    entries.append({entries.size() + 1, slot.label, {}, slot.kind});
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
  QList<const QString*> labels(_slots.size(), nullptr);  // null: removed
  Output output;
  QByteArray added;
  for (const Entry& entry : entries) {
    if (entry.id <= _slots.size()) {
      labels[entry.id - 1] = &entry.label;
    } else {
      added += newRow(entry.label, output.wholeLabels) + _lineBreak;
    }
  }
  output.text.reserve(_text.utf8.size() + added.size());
  output.text = _headerRange.of(_text.utf8);
  auto slot = _slots.cbegin();
  for (int row = 0; row < _rows.size(); ++row) {
    const QByteArray text = rowText(row, slot, labels, output.wholeLabels);
    endLine(output.text, text);
    output.text += text;
  }
  endLine(output.text, added);
  const qsizetype end = _rows.isEmpty() ? _headerRange.end : _rows.last().end;
  output.text += added + _text.utf8.sliced(end);  // blank lines behind the last row
  return output;
}

// What was the last row may have had no line break.
void CsvFile::endLine(QByteArray& text, const QByteArray& next) const {
  if (!next.isEmpty() && !text.isEmpty() && !isLineBreak(text.back())) {
    text += _lineBreak;
  }
}

// Returns the row as it is to be written; empty where all of its entries were removed. `slot` is
// moved behind those of the row.
QByteArray CsvFile::rowText(int row, QList<Slot>::const_iterator& slot,
                            const QList<const QString*>& labels, int& wholeLabels) const {
  const QByteArray text = _rows[row].of(_text.utf8);
  std::optional<QStringList> cells;  // read for a row that changes
  bool isEmpty = true;
  for (; slot != _slots.cend() && slot->row == row; ++slot) {
    const QString* const label = labels[slot - _slots.cbegin()];
    isEmpty = isEmpty && label == nullptr;
    if (label != nullptr && *label == slot->label) {
      continue;
    }
    if (!cells) {
      cells = tables::CsvReader(_choice.delimiter).firstRow(text);
    }
    const tables::ColumnMapping& mapping = _choice.addresses[slot->address].mapping;
    if (label == nullptr) {
      cells = mapping.withoutAddress(*cells);
      continue;
    }
    const tables::ColumnMapping::Division division = mapping.divide(*label, *cells);
    wholeLabels += division.isWhole ? 1 : 0;
    cells = division.cells;
  }
  if (isEmpty) {
    return {};
  }
  return cells ? tables::csvRowWith(text, *cells, _choice.delimiter) : text;
}

QByteArray CsvFile::newRow(const QString& label, int& wholeLabels) const {
  const tables::ColumnMapping::Division division =
      _choice.addresses.first().mapping.divide(label, {});
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
