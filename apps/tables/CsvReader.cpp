#include "apps/tables/CsvReader.h"

#include <csv.h>

#include <algorithm>
#include <new>

#include "apps/tables/FileError.h"

namespace postwright::tables {

namespace {

constexpr size_t kLongestCell = 1024 * 1024;
// A piece fed to the parser at once is never longer, so an endless cell is found out in time.
constexpr qsizetype kLongestPiece = 64 * 1024;
constexpr qsizetype kGuessedText = 64 * 1024;
constexpr int kGuessedRows = 50;

// libcsv's parser and what it has found since it was last asked.
class Parser {
 public:
  explicit Parser(char delimiter) {
    if (csv_init(&_parser, 0) != 0) {
      throw std::bad_alloc();
    }
    csv_set_delim(&_parser, static_cast<uchar>(delimiter));
  }
  Parser(const Parser&) = delete;
  Parser& operator=(const Parser&) = delete;
  ~Parser() { csv_free(&_parser); }

  // Feeds the next bytes, which must end at most one row.
  void feed(QByteArrayView piece) {
    if (csv_parse(&_parser, piece.data(), piece.size(), takeCell, takeRow, this) !=
        static_cast<size_t>(piece.size())) {
      throw std::bad_alloc();  // what is not strict fails for want of memory alone
    }
  }

  // Ends the last row, which may lack its line break. False where a quotation mark is still open:
  // there the break becomes part of a cell, which csv_fini() would take for the whole cell.
  bool finish() {
    if (!_hasRow) {
      feed("\n");
    }
    return _parser.entry_pos == 0;
  }

  bool isCellTooLong() const { return _isCellTooLong || _parser.entry_pos > kLongestCell; }
  bool hasRow() const { return _hasRow; }
  QStringList& cells() { return _cells; }
  void beginRow() {
    _cells.clear();
    _hasRow = false;
  }

 private:
  static void takeCell(void* text, size_t size, void* self) {
    auto* const parser = static_cast<Parser*>(self);
    parser->_isCellTooLong |= size > kLongestCell;
    parser->_cells.append(
        QString::fromUtf8(static_cast<const char*>(text), static_cast<qsizetype>(size)));
  }
  static void takeRow(int /*terminator*/, void* self) {
    static_cast<Parser*>(self)->_hasRow = true;
  }

  csv_parser _parser;
  QStringList _cells;
  bool _hasRow = false;
  bool _isCellTooLong = false;
};

// The end of the piece that begins at `begin`: behind a line break, where a row may end.
qsizetype endOfPiece(QByteArrayView text, qsizetype begin) {
  const qsizetype limit = std::min(begin + kLongestPiece, text.size());
  const char* const last = text.data() + limit;
  const char* const found =
      std::find_if(text.data() + begin, last, [](char c) { return c == '\n' || c == '\r'; });
  if (found == last) {
    return limit;
  }
  const qsizetype end = found - text.data() + 1;
  const bool isPair = *found == '\r' && end < text.size() && text[end] == '\n';
  return isPair ? end + 1 : end;
}

qsizetype lineOf(QByteArrayView text, qsizetype offset) {
  return std::count(text.data(), text.data() + offset, '\n') + 1;
}

[[noreturn]] void failCell(QByteArrayView text, qsizetype rowBegin) {
  throw FileError(CsvReader::tr("The row that begins on line %1 holds a cell of more than 1 MiB. "
                                "Perhaps a quotation mark is missing there.")
                      .arg(lineOf(text, rowBegin)));
}

[[noreturn]] void failQuote(QByteArrayView text, qsizetype rowBegin) {
  throw FileError(CsvReader::tr("In the row that begins on line %1 a quotation mark is opened and "
                                "not closed until the end of the file.")
                      .arg(lineOf(text, rowBegin)));
}

// The offset of the line in which a row begins, behind the blank lines before it.
qsizetype skipBlankLines(QByteArrayView row, char delimiter) {
  qsizetype line = 0;
  for (qsizetype offset = 0; offset < row.size(); ++offset) {
    const char c = row[offset];
    if (c == '\n' || c == '\r') {
      line = offset + 1;
    } else if (c == delimiter || (c != ' ' && c != '\t')) {
      break;
    }
  }
  return line;
}

// How well a delimiter parts the first rows: how many have as many cells as the first, and how many
// cells that is. Nothing where it parts nothing.
std::pair<int, qsizetype> evenness(QByteArrayView utf8, char delimiter) {
  int rows = 0;
  int even = 0;
  qsizetype columns = 0;
  try {
    CsvReader(delimiter).readRows(utf8, [&](const CsvRow& row) {
      columns = rows == 0 ? row.cells.size() : columns;
      even += row.cells.size() == columns ? 1 : 0;
      return ++rows < kGuessedRows;
    });
  } catch (const FileError&) {
    // The text may have been cut inside quotation marks; what came before counts. A file that is
    // really broken is reported when it is read whole.
  }
  return columns < 2 ? std::pair<int, qsizetype>{0, 0} : std::pair{even, columns};
}

}  // namespace

bool CsvReader::isDelimiter(char character) {
  const bool isLetterOrDigit = (character >= '0' && character <= '9') ||
                               (character >= 'A' && character <= 'Z') ||
                               (character >= 'a' && character <= 'z');
  return character == '\t' ||
         (character >= ' ' && character <= '~' && character != '"' && !isLetterOrDigit);
}

char CsvReader::guessDelimiter(QByteArrayView utf8) {
  const QByteArrayView start = utf8.first(std::min(utf8.size(), kGuessedText));
  char best = kUsualDelimiters[0];
  auto bestEvenness = evenness(start, best);
  for (const char candidate : kUsualDelimiters.sliced(1)) {
    const auto candidateEvenness = evenness(start, candidate);
    if (candidateEvenness > bestEvenness) {
      best = candidate;
      bestEvenness = candidateEvenness;
    }
  }
  return best;
}

void CsvReader::readRows(QByteArrayView utf8,
                         const std::function<bool(const CsvRow&)>& take) const {
  Parser parser(_delimiter);
  qsizetype rowBegin = 0;
  for (qsizetype begin = 0; begin < utf8.size();) {
    const qsizetype end = endOfPiece(utf8, begin);
    parser.feed(utf8.sliced(begin, end - begin));
    if (parser.isCellTooLong()) {
      failCell(utf8, rowBegin);
    }
    if (parser.hasRow()) {
      if (!take({{rowBegin, end}, parser.cells()})) {
        return;
      }
      parser.beginRow();
      rowBegin = end;
    }
    begin = end;
  }
  if (!parser.finish()) {
    failQuote(utf8, rowBegin);
  }
  if (parser.hasRow()) {
    take({{rowBegin, utf8.size()}, parser.cells()});
  }
}

QStringList CsvReader::firstRow(QByteArrayView utf8) const {
  QStringList cells;
  readRows(utf8, [&cells](const CsvRow& row) {
    cells = row.cells;
    return false;
  });
  return cells;
}

QList<TextRange> CsvReader::cellRanges(QByteArrayView row) const {
  QList<TextRange> ranges;
  Parser parser(_delimiter);
  qsizetype cellBegin = skipBlankLines(row, _delimiter);
  for (qsizetype offset = cellBegin; offset < row.size() && !parser.hasRow(); ++offset) {
    parser.feed(row.sliced(offset, 1));
    if (parser.cells().size() > ranges.size()) {
      ranges.append({cellBegin, offset});
      cellBegin = offset + 1;
    }
  }
  parser.finish();
  if (parser.cells().size() > ranges.size()) {
    ranges.append({cellBegin, row.size()});
  }
  return ranges;
}

}  // namespace postwright::tables
