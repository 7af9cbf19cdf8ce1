#include "apps/workbook/OdsSheet.h"

#include <QRegularExpression>
#include <algorithm>

#include "apps/workbook/OdsText.h"

namespace postwright::workbook {

namespace {

constexpr const char* kRows = "number-rows-repeated";
constexpr const char* kColumns = "number-columns-repeated";
constexpr int kDeepest = 64;

// Attributes that say what a cell holds.
bool isValue(QByteArrayView name) {
  static constexpr const char* kNames[] = {"value-type", "value",         "date-value",
                                           "time-value", "boolean-value", "string-value",
                                           "currency",   kColumns};
  return std::any_of(std::begin(kNames), std::end(kNames),
                     [name](const char* each) { return name == QByteArrayView(each); });
}

int countOf(pugi::xml_node node, const char* attribute) {
  const QString said = attributeNamed(node, attribute);
  return said.isEmpty() ? 1 : std::clamp(said.toInt(), 1, Workbook::kMostRows);
}

// Elements that part a table into groups of rows.
bool isRowGroup(pugi::xml_node node) {
  return isNamed(node, "table-header-rows") || isNamed(node, "table-row-group") ||
         isNamed(node, "table-rows");
}

// Adds the rows within an element; groups may stand within groups.
void takeRows(pugi::xml_node parent, QList<pugi::xml_node>& rows, int depth) {
  if (depth > kDeepest) {
    failDamagedSheet();
  }
  for (const pugi::xml_node child : parent.children()) {
    if (isNamed(child, "table-row")) {
      rows.append(child);
    } else if (isRowGroup(child)) {
      takeRows(child, rows, depth + 1);
    }
  }
}

QByteArray attributeText(pugi::xml_attribute attribute) {
  return QByteArray(" ") + attribute.name() + "=\"" +
         xmlEscaped(QString::fromUtf8(attribute.value())) + '"';
}

}  // namespace

QList<pugi::xml_node> odsTables(const XmlText& content) {
  const pugi::xml_node sheets = childNamed(childNamed(content.root(), "body"), "spreadsheet");
  QList<pugi::xml_node> tables;
  for (pugi::xml_node table = childNamed(sheets, "table"); table;
       table = nextNamed(table, "table")) {
    tables.append(table);
  }
  return tables;
}

OdsSheet::OdsSheet(QByteArray content, int sheet)
    : _xml(std::move(content)),
      _table(odsTables(_xml).value(sheet)),
      _prefix(prefixOf(_table)),
      _textPrefix("text:"),
      _officePrefix(prefixOf(_xml.root())) {
  if (!_table) {
    failDamagedSheet();
  }
  for (const pugi::xml_attribute attribute : _xml.root().attributes()) {
    if (QByteArrayView(attribute.value()) == "urn:oasis:names:tc:opendocument:xmlns:text:1.0") {
      _textPrefix = localName(attribute.name()).toByteArray() + ':';
    }
  }
}

QList<OdsSheet::Run> OdsSheet::rowRuns() const {
  QList<pugi::xml_node> rows;
  takeRows(_table, rows, 0);
  QList<Run> runs;
  int number = 0;
  for (const pugi::xml_node row : rows) {
    runs.append({number, countOf(row, kRows), row});
    number = std::min(number + runs.last().count, Workbook::kMostRows);
  }
  return runs;
}

QList<OdsSheet::Run> OdsSheet::cellRuns(pugi::xml_node row) {
  QList<Run> runs;
  int column = 0;
  for (const pugi::xml_node cell : row.children()) {
    if (isNamed(cell, "table-cell") || isNamed(cell, "covered-table-cell")) {
      runs.append({column, countOf(cell, kColumns), cell});
      column = std::min(column + runs.last().count, Workbook::kMostRows);
    }
  }
  return runs;
}

// A number in the format 00000 is what its cell shows.
OdsSheet::Shown OdsSheet::shownIn(pugi::xml_node cell) {
  static const QRegularExpression digits(QStringLiteral("^[0-9]+(-[0-9]+)?$"));
  const QString type = attributeNamed(cell, "value-type");
  Shown shown{odsParagraphs(cell), CellKind::Text};
  if (type == u"float") {
    const QString value = attributeNamed(cell, "value");
    shown = {digits.match(shown.text).hasMatch() ? shown.text : value, CellKind::Number};
  } else if (type == u"date") {
    shown = {attributeNamed(cell, "date-value"), CellKind::Kept};
  } else if (type == u"string") {
    const QString value = attributeNamed(cell, "string-value");
    shown.text = value.isEmpty() ? shown.text : value;
  } else if (!type.isEmpty()) {
    shown.kind = CellKind::Kept;
  }
  if (!attributeNamed(cell, "formula").isEmpty() || isNamed(cell, "covered-table-cell")) {
    shown.kind = CellKind::Kept;
  }
  return shown;
}

QList<SheetRow> OdsSheet::rows() const {
  QList<SheetRow> rows;
  qsizetype count = 0;
  for (const Run& run : rowRuns()) {
    SheetRow read{run.first, {}, {}};
    for (const Run& cell : cellRuns(run.node)) {
      const Shown shown = shownIn(cell.node);
      if (shown.text.isEmpty()) {
        continue;
      }
      const qsizetype end = cell.first + cell.count;
      count += (end - read.cells.size()) * run.count;
      if (end > Workbook::kMostColumns || count > Workbook::kMostCells) {
        failTooLarge();
      }
      read.cells.resize(cell.first);
      read.kinds.resize(cell.first, CellKind::Text);
      read.cells.resize(end, shown.text);
      read.kinds.resize(end, shown.kind);
    }
    for (int copy = 0; copy < run.count && !read.cells.isEmpty(); ++copy) {
      rows.append(read);
      ++read.number;
    }
  }
  return rows;
}

bool OdsSheet::isEmpty(pugi::xml_node row) {
  const QList<Run> cells = cellRuns(row);
  return std::all_of(cells.begin(), cells.end(),
                     [](const Run& cell) { return shownIn(cell.node).text.isEmpty(); });
}

QByteArray OdsSheet::with(const QList<RowChange>& changes, const QList<QStringList>& added) {
  const QList<Run> runs = rowRuns();
  qsizetype filled = runs.size();
  while (filled > 0 && isEmpty(runs[filled - 1].node)) {
    --filled;
  }
  auto change = changes.cbegin();
  for (const Run& run : runs.first(filled)) {
    QByteArray text;
    int number = run.first;
    const auto copies = [&](int end) {
      text += end > number ? withCount(run.node, kRows, end - number) : QByteArray();
      number = end;
    };
    const auto before = change;
    for (; change != changes.cend() && change->number < run.first + run.count; ++change) {
      copies(change->number);
      text += changedRow(run, *change);
      ++number;
    }
    if (change != before) {
      copies(run.first + run.count);
      _xml.replace(run.node, text);
    }
  }
  add(runs, filled, added);
  return _xml.result();
}

// New rows stand in front of the empty ones that a table ends with, and take the place of as many.
void OdsSheet::add(const QList<Run>& runs, qsizetype filled, const QList<QStringList>& added) {
  QByteArray text;
  for (const QStringList& cells : added) {
    text += "<" + _prefix + "table-row>" + newCells(cells, 0) + "</" + _prefix + "table-row>";
  }
  if (text.isEmpty()) {
    return;
  }
  const QList<Run> empty = runs.sliced(filled);
  if (!empty.isEmpty() && empty.first().count > added.size()) {
    const Run& next = empty.first();
    const int left = next.count - static_cast<int>(added.size());
    _xml.replace(next.node, text + withCount(next.node, kRows, left));
  } else if (filled > 0) {
    _xml.insertBehind(runs[filled - 1].node, text);
  } else {
    _xml.append(_table, text);
  }
}

// The element once more, standing for as many rows or columns.
QByteArray OdsSheet::withCount(pugi::xml_node element, const char* attribute, int count) const {
  const QByteArrayView whole = _xml.textOf(element);
  QByteArray tag = QByteArray("<") + element.name();
  for (const pugi::xml_attribute each : element.attributes()) {
    tag += localName(each.name()) == QByteArrayView(attribute) ? QByteArray() : attributeText(each);
  }
  if (count > 1) {
    tag += " " + _prefix + attribute + "=\"" + QByteArray::number(count) + '"';
  }
  const pugi::xml_node inner = element.first_child();
  if (!inner) {
    return tag + "/>";
  }
  const qsizetype tagEnd = XmlText::behindTag(whole, 0);
  return tag + ">" + whole.sliced(tagEnd).toByteArray();
}

QByteArray OdsSheet::changedRow(const Run& row, const RowChange& change) const {
  QByteArray tag = QByteArray("<") + row.node.name();
  for (const pugi::xml_attribute each : row.node.attributes()) {
    tag += localName(each.name()) == QByteArrayView(kRows) ? QByteArray() : attributeText(each);
  }
  QByteArray text = tag + ">";
  qsizetype columns = 0;
  const QList<Run> runs = cellRuns(row.node);
  auto run = runs.cbegin();
  for (const pugi::xml_node child : row.node.children()) {
    if (run != runs.cend() && child == run->node) {
      text += changedCells(*run, change.number, change.cells);
      columns = run->first + run->count;
      ++run;
    } else if (child.type() == pugi::node_element) {
      text += _xml.textOf(child).toByteArray();
    }
  }
  return text + newCells(change.cells.value_or(QStringList()), columns) + "</" + row.node.name() +
         ">";
}

QByteArray OdsSheet::changedCells(const Run& run, int row,
                                  const std::optional<QStringList>& cells) const {
  const Shown shown = shownIn(run.node);
  const bool isFormula = !attributeNamed(run.node, "formula").isEmpty();
  const auto isSame = [&](int column) {
    return cells ? cells->value(column) == shown.text : isFormula || shown.text.isEmpty();
  };
  QByteArray text;
  int column = run.first;
  for (const int end = run.first + run.count; column < end;) {
    if (!isSame(column)) {
      if (cells && shown.kind == CellKind::Kept) {
        failKept(row, column);
      }
      text += cellText(run.node, cells ? cells->value(column) : QString());
      ++column;
      continue;
    }
    // After the last cell of the row, all are alike.
    const int first = column;
    const int known = cells ? static_cast<int>(cells->size()) : 0;
    while (column < end && isSame(column)) {
      column = column >= known ? end : column + 1;
    }
    text += first == run.first && column == end ? _xml.textOf(run.node).toByteArray()
                                                : withCount(run.node, kColumns, column - first);
  }
  return text;
}

// The cell with another text: its style and what else stands in it, such as a note, stay.
QByteArray OdsSheet::cellText(pugi::xml_node old, const QString& text) const {
  QByteArray tag = QByteArray("<") + old.name();
  QByteArray types;
  for (const pugi::xml_attribute each : old.attributes()) {
    if (!isValue(localName(each.name()))) {
      tag += attributeText(each);
    } else if (localName(each.name()) == "value-type") {
      types += QByteArray(" ") + each.name() + "=\"string\"";
    }
  }
  QByteArray inner;
  for (const pugi::xml_node child : old.children()) {
    if (child.type() == pugi::node_element && !isNamed(child, "p")) {
      inner += _xml.textOf(child).toByteArray();
    }
  }
  if (text.isEmpty()) {
    return inner.isEmpty() ? tag + "/>" : tag + ">" + inner + "</" + old.name() + ">";
  }
  for (const QString& line : text.split(u'\n')) {
    inner += odsParagraph(_textPrefix, line);
  }
  const QByteArray type = " " + _officePrefix + "value-type=\"string\"";
  return tag + (types.isEmpty() ? type : types) + ">" + inner + "</" + old.name() + ">";
}

// The cells of a row from a column on; empty ones in front of others are counted.
QByteArray OdsSheet::newCells(const QStringList& cells, qsizetype first) const {
  const QByteArray name = _prefix + "table-cell";
  QByteArray text;
  int empty = 0;
  for (const QString& cell : cells.mid(first)) {
    if (cell.isEmpty()) {
      ++empty;
      continue;
    }
    if (empty > 0) {
      text += "<" + name + " " + _prefix + kColumns + "=\"" + QByteArray::number(empty) + "\"/>";
      empty = 0;
    }
    text += "<" + name + " " + _officePrefix + "value-type=\"string\">";
    for (const QString& line : cell.split(u'\n')) {
      text += odsParagraph(_textPrefix, line);
    }
    text += "</" + name + ">";
  }
  return text;
}

}  // namespace postwright::workbook
