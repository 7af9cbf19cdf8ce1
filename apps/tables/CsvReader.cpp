#include "apps/tables/CsvReader.h"

#include <algorithm>

#include "apps/tables/FileError.h"

namespace postwright::tables {

namespace {

constexpr qsizetype kLongestCell = 1024 * 1024;
constexpr qsizetype kGuessedText = 64 * 1024;
constexpr int kGuessedRows = 50;

qsizetype lineOf(QByteArrayView text, qsizetype offset) {
  return std::count(text.data(), text.data() + offset, '\n') + 1;
}

[[noreturn]] void failCell(QByteArrayView text, qsizetype rowBegin) {
  throw FileError(CsvReader::tr("The row that begins on line %1 holds a cell of more than 1 MiB. "
                                "Perhaps a quotation mark is missing there.")
                      .arg(lineOf(text, rowBegin)));
}

bool isBlank(char c, char delimiter) {
  return (c == ' ' || c == '\t') && c != delimiter;
}

bool isLineBreak(char c) {
  return c == '\n' || c == '\r';
}

// Reads a text row by row.
class RowScanner {
 public:
  RowScanner(QByteArrayView text, char delimiter) : _text(text), _delimiter(delimiter) {}

  // Reads the next row; false where only blank lines, or nothing, is left.
  bool next(CsvRow& row) {
    row = {{_at, _at}, {}, {}, false};
    skipBlankLines();
    if (_at == _text.size()) {
      return false;
    }
    while (takeCell(row)) {
    }
    row.range.end = _at;
    return true;
  }

 private:
  char at(qsizetype offset) const { return _text[offset]; }

  qsizetype behindBlanks(qsizetype offset) const {
    while (offset < _text.size() && isBlank(at(offset), _delimiter)) {
      ++offset;
    }
    return offset;
  }

  bool endsCell(qsizetype offset) const {
    return offset == _text.size() || at(offset) == _delimiter || isLineBreak(at(offset));
  }

  void skipLineBreak() {
    const bool isPair = at(_at) == '\r' && _at + 1 < _text.size() && at(_at + 1) == '\n';
    _at += isPair ? 2 : 1;
  }

  void skipBlankLines() {
    for (qsizetype offset = behindBlanks(_at); offset < _text.size() && isLineBreak(at(offset));
         offset = behindBlanks(_at)) {
      _at = offset;
      skipLineBreak();
    }
    if (behindBlanks(_at) == _text.size()) {
      _at = _text.size();
    }
  }

  // Takes a cell and the delimiter or line break after it; false after the last one of the row.
  bool takeCell(CsvRow& row) {
    const qsizetype begin = _at;
    const qsizetype first = behindBlanks(begin);
    if (first < _text.size() && at(first) == '"') {
      if (const qsizetype close = closeOf(first); close >= 0) {
        row.cells.append(
            textOf(first + 1, close).replace(QLatin1String("\"\""), QLatin1String("\"")));
        _at = behindBlanks(close + 1);
        return endCell(row, begin);
      }
      row.isBroken = true;
      takePlain(row, first + 1);
    } else {
      takePlain(row, first);
    }
    return endCell(row, begin);
  }

  void takePlain(CsvRow& row, qsizetype first) {
    _at = first;
    while (!endsCell(_at)) {
      ++_at;
    }
    qsizetype end = _at;
    while (end > first && isBlank(at(end - 1), _delimiter)) {
      --end;
    }
    if (end - first > kLongestCell) {
      failCell(_text, row.range.begin);
    }
    row.cells.append(textOf(first, end));
  }

  bool endCell(CsvRow& row, qsizetype begin) {
    row.ranges.append({begin, _at});
    if (_at == _text.size()) {
      return false;
    }
    if (at(_at) == _delimiter) {
      ++_at;
      return true;
    }
    skipLineBreak();
    return false;
  }

  QString textOf(qsizetype begin, qsizetype end) const {
    return QString::fromUtf8(_text.sliced(begin, end - begin));
  }

  // The quotation mark that closes the one at `open`, or -1.
  qsizetype closeOf(qsizetype open) {
    const qsizetype lineEnd = lineEndBehind(open);
    const qsizetype runEnd = behindMarks(open);
    for (qsizetype offset = open + 1;;) {
      // Between an unclosed mark and what showed it to be one, no mark closes any but its
      // neighbour.
      if (offset >= runEnd && open > _unclosed && offset < _shown) {
        offset = _shown;
      }
      const qsizetype mark = _text.indexOf('"', offset);
      if (mark < 0 || mark - open > kLongestCell) {
        return failToClose(open, mark < 0 ? _text.size() : mark);
      }
      if (mark + 1 < _text.size() && at(mark + 1) == '"') {
        offset = mark + 2;
      } else if (endsCell(behindBlanks(mark + 1))) {
        return mark;
      } else if (mark > lineEnd) {
        return failToClose(open, mark);
      } else {
        offset = mark + 1;  // one that should have been doubled
      }
    }
  }

  qsizetype lineEndBehind(qsizetype offset) {
    if (_lineEnd < offset) {
      _lineEnd = std::find_if(_text.begin() + offset, _text.end(), isLineBreak) - _text.begin();
    }
    return _lineEnd;
  }

  qsizetype behindMarks(qsizetype offset) const {
    while (offset < _text.size() && at(offset) == '"') {
      ++offset;
    }
    return offset;
  }

  qsizetype failToClose(qsizetype open, qsizetype shown) {
    _unclosed = open;
    _shown = shown;
    return -1;
  }

  QByteArrayView _text;
  char _delimiter;
  qsizetype _at = 0;
  qsizetype _lineEnd = -1;   // of the line in which a mark was last looked at
  qsizetype _unclosed = -1;  // the last unclosed mark,
  qsizetype _shown = -1;     // and where it was found to be one
};

// How well a delimiter divides the first rows: how many have as many cells as the first, and how
// many cells that is. Nothing where it parts nothing.
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
  RowScanner scanner(utf8, _delimiter);
  CsvRow row;
  while (scanner.next(row) && take(row)) {
  }
}

QStringList CsvReader::firstRow(QByteArrayView utf8) const {
  return first(utf8).cells;
}

CsvRow CsvReader::first(QByteArrayView utf8) const {
  CsvRow row;
  RowScanner(utf8, _delimiter).next(row);
  return row;
}

}  // namespace postwright::tables
