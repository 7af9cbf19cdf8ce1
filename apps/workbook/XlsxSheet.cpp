#include "apps/workbook/XlsxSheet.h"

#include <QRegularExpression>
#include <algorithm>

namespace postwright::workbook {

namespace {

constexpr int kLetters = 26;

// All text of an element, with any comments in it left out.
QString textOf(pugi::xml_node element) {
  QString text;
  for (const pugi::xml_node piece : element.children()) {
    if (piece.type() == pugi::node_pcdata || piece.type() == pugi::node_cdata) {
      text += QString::fromUtf8(piece.value());
    }
  }
  return text;
}

// "_x000D_" stands for a character that XML does not take.
QString unescaped(QString text) {
  static const QRegularExpression escape(QStringLiteral("_x([0-9A-Fa-f]{4})_"));
  for (qsizetype at = text.indexOf(u"_x"); at >= 0; at = text.indexOf(u"_x", at + 1)) {
    const QRegularExpressionMatch match = escape.match(
        text, at, QRegularExpression::NormalMatch, QRegularExpression::AnchorAtOffsetMatchOption);
    if (match.hasMatch()) {
      text.replace(at, match.capturedLength(), QChar(match.captured(1).toUShort(nullptr, 16)));
    }
  }
  return text;
}

QString escaped(QString text) {
  static const QRegularExpression literal(QStringLiteral("_(?=x[0-9A-Fa-f]{4}_)"));
  return text.replace(literal, QStringLiteral("_x005F_"));
}

// A text is plain or in runs of different type; how it is pronounced does not count.
QString stringOf(pugi::xml_node item) {
  QString text;
  for (const pugi::xml_node child : item.children()) {
    if (isNamed(child, "t")) {
      text += textOf(child);
    } else if (isNamed(child, "r")) {
      text += textOf(childNamed(child, "t"));
    }
  }
  return unescaped(text).replace(QLatin1String("\r\n"), QLatin1String("\n"));
}

// The column of "AB12", from 1; 0 where there is none.
int columnOf(const char* reference) {
  int column = 0;
  for (; *reference >= 'A' && *reference <= 'Z'; ++reference) {
    column = std::min(column * kLetters + (*reference - 'A' + 1), Workbook::kMostColumns + 1);
  }
  return column;
}

// A cell that does not say where it stands is after the one before.
int columnOf(pugi::xml_node cell, int before) {
  const int said = columnOf(cell.attribute("r").value());
  const int column = said > 0 ? said - 1 : before + 1;
  if (column >= Workbook::kMostColumns) {
    failTooLarge();
  }
  return column;
}

int numberOf(pugi::xml_node row, int before) {
  const int said = row.attribute("r").as_int(0);
  const int number = said > 0 ? said - 1 : before + 1;
  if (number >= Workbook::kMostRows) {
    failTooLarge();
  }
  return number;
}

}  // namespace

QStringList readSharedStrings(const QByteArray& part) {
  const XmlText xml(part);
  QStringList strings;
  for (pugi::xml_node item = childNamed(xml.root(), "si"); item; item = nextNamed(item, "si")) {
    strings.append(stringOf(item));
  }
  return strings;
}

XlsxSheet::XlsxSheet(QByteArray part, QStringList strings, const NumberFormats& formats,
                     bool isFrom1904)
    : _xml(std::move(part)),
      _strings(std::move(strings)),
      _formats(formats),
      _isFrom1904(isFrom1904) {}

pugi::xml_node XlsxSheet::data() const {
  const pugi::xml_node data = childNamed(_xml.root(), "sheetData");
  if (!data) {
    failDamagedSheet();
  }
  return data;
}

NumberFormats::Shown XlsxSheet::shownIn(pugi::xml_node cell) const {
  const QByteArrayView type(cell.attribute("t").value());
  const QString value = textOf(childNamed(cell, "v"));
  NumberFormats::Shown shown{value, CellKind::Text};
  if (type == "s") {
    bool isNumber = false;
    const int place = value.toInt(&isNumber);
    if (!isNumber || place < 0 || place >= _strings.size()) {
      failDamagedSheet();
    }
    shown.text = _strings[place];
  } else if (type == "inlineStr") {
    shown.text = stringOf(childNamed(cell, "is"));
  } else if (type == "str") {
    shown.text = unescaped(value);
  } else if (type == "b") {
    shown = {value == u"1" ? QStringLiteral("TRUE") : QStringLiteral("FALSE"), CellKind::Kept};
  } else if (type == "e" || type == "d") {
    shown.kind = CellKind::Kept;
  } else if (!value.isEmpty()) {
    shown = _formats.show(value, cell.attribute("s").as_int(0), _isFrom1904);
  }
  if (childNamed(cell, "f")) {
    shown.kind = CellKind::Kept;
  }
  return shown;
}

QList<XlsxSheet::Cell> XlsxSheet::cellsOf(pugi::xml_node row) const {
  QList<Cell> cells;
  int column = -1;
  for (pugi::xml_node cell = childNamed(row, "c"); cell; cell = nextNamed(cell, "c")) {
    const int before = column;
    column = columnOf(cell, before);
    if (column <= before) {
      failDamagedSheet();
    }
    cells.append({column, shownIn(cell), cell});
  }
  return cells;
}

QList<SheetRow> XlsxSheet::rows() const {
  QList<SheetRow> rows;
  qsizetype count = 0;
  int number = -1;
  for (pugi::xml_node row = childNamed(data(), "row"); row; row = nextNamed(row, "row")) {
    const int before = number;
    number = numberOf(row, before);
    if (number <= before) {
      failDamagedSheet();
    }
    SheetRow read{number, {}, {}};
    for (const Cell& cell : cellsOf(row)) {
      if (cell.shown.text.isEmpty() && cell.shown.kind == CellKind::Text) {
        continue;
      }
      count += cell.column + 1 - read.cells.size();
      if (count > Workbook::kMostCells) {
        failTooLarge();
      }
      read.cells.resize(cell.column + 1);
      read.kinds.resize(cell.column + 1, CellKind::Text);
      read.cells.last() = cell.shown.text;
      read.kinds.last() = cell.shown.kind;
    }
    if (!read.cells.isEmpty()) {
      rows.append(read);
    }
  }
  return rows;
}

QByteArray XlsxSheet::with(const QList<RowChange>& changes, const QList<QStringList>& added) {
  int number = -1;
  for (pugi::xml_node row = childNamed(data(), "row"); row; row = nextNamed(row, "row")) {
    number = numberOf(row, number);
  }
  widen(number, added);
  auto change = changes.cbegin();
  number = -1;
  for (pugi::xml_node row = childNamed(data(), "row"); row; row = nextNamed(row, "row")) {
    number = numberOf(row, number);
    if (change != changes.cend() && change->number == number) {
      this->change(row, number, change->cells);
      ++change;
    }
  }
  if (!added.isEmpty()) {
    const QByteArray prefix = prefixOf(data());
    QByteArray text;
    for (const QStringList& cells : added) {
      text += rowText(prefix, ++number, cells);
    }
    _xml.append(data(), text);
  }
  return _xml.result();
}

// Some readers believe what a sheet says of its own size.
void XlsxSheet::widen(int lastRow, const QList<QStringList>& added) {
  const pugi::xml_node dimension = childNamed(_xml.root(), "dimension");
  static const QRegularExpression form(QStringLiteral("^(([A-Z]+)[0-9]+)(?::([A-Z]+)[0-9]+)?$"));
  const QRegularExpressionMatch said = form.match(attributeNamed(dimension, "ref"));
  if (added.isEmpty() || !said.hasMatch()) {
    return;
  }
  const QString last = said.captured(said.captured(3).isEmpty() ? 2 : 3);
  int columns = columnOf(last.toLatin1().constData());
  for (const QStringList& cells : added) {
    columns = std::max(columns, static_cast<int>(cells.size()));
  }
  const auto rows = lastRow + 1 + static_cast<int>(added.size());
  const QString ref = said.captured(1) + u':' + columnLetters(columns - 1) + QString::number(rows);
  _xml.replace(dimension, QByteArray("<") + dimension.name() + " ref=\"" + ref.toLatin1() + "\"/>");
}

void XlsxSheet::change(pugi::xml_node row, int number, const std::optional<QStringList>& cells) {
  const QByteArray prefix = prefixOf(row);
  int column = 0;
  const QStringList wanted = cells.value_or(QStringList());
  const auto missing = [&](int end) {
    QByteArray text;
    for (; column < std::min<qsizetype>(end, wanted.size()); ++column) {
      text += wanted[column].isEmpty()
                  ? QByteArray()
                  : cellText(prefix, number, column, wanted[column], pugi::xml_node());
    }
    return text;
  };
  for (const Cell& cell : cellsOf(row)) {
    if (const QByteArray text = missing(cell.column); !text.isEmpty()) {
      _xml.insertBefore(cell.node, text);
    }
    column = cell.column + 1;
    const QString text = wanted.value(cell.column);
    const bool isKept = cell.shown.kind == CellKind::Kept;
    if (text == cell.shown.text || (!cells && childNamed(cell.node, "f"))) {
      continue;
    }
    if (isKept && cells) {
      failKept(number, cell.column);
    }
    _xml.replace(cell.node, cellText(prefix, number, cell.column, text, cell.node));
  }
  if (const QByteArray text = missing(Workbook::kMostColumns); !text.isEmpty()) {
    _xml.append(row, text);
  }
}

// A cell stays a number where its format shows the text that it is to show.
QByteArray XlsxSheet::cellText(const QByteArray& prefix, int row, int column, const QString& text,
                               pugi::xml_node old) const {
  const QByteArray style = old.attribute("s").value();
  QByteArray cell = "<" + prefix + "c r=\"" + columnLetters(column).toLatin1() +
                    QByteArray::number(row + 1) + '"' +
                    (style.isEmpty() ? QByteArray() : " s=\"" + style + '"');
  if (text.isEmpty()) {
    return cell + "/>";
  }
  const bool wasNumber = old && shownIn(old).kind == CellKind::Number;
  const QString digits = QString(text).remove(u'-');
  const QString number = QString::number(digits.toLongLong());
  if (wasNumber && digits.size() <= 15 &&
      _formats.show(number, style.toInt(), _isFrom1904).text == text) {
    return cell + "><" + prefix + "v>" + number.toLatin1() + "</" + prefix + "v></" + prefix + "c>";
  }
  return cell + " t=\"inlineStr\"><" + prefix + "is><" + prefix + "t xml:space=\"preserve\">" +
         xmlEscaped(escaped(text)) + "</" + prefix + "t></" + prefix + "is></" + prefix + "c>";
}

QByteArray XlsxSheet::rowText(const QByteArray& prefix, int number,
                              const QStringList& cells) const {
  QByteArray text = "<" + prefix + "row r=\"" + QByteArray::number(number + 1) + "\">";
  for (int column = 0; column < cells.size(); ++column) {
    if (!cells[column].isEmpty()) {
      text += cellText(prefix, number, column, cells[column], pugi::xml_node());
    }
  }
  return text + "</" + prefix + "row>";
}

}  // namespace postwright::workbook
