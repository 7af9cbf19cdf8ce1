#include "apps/tables/ColumnMapping.h"

#include <algorithm>
#include <numeric>

namespace postwright::tables {

namespace {

const QLatin1Char kLineFeed('\n');
const QLatin1Char kBlank(' ');

constexpr int kZipDigits = 5;
constexpr int kZipPlusDigits = 4;

// Tells whether a line, where there is a choice, is the name of someone rather than a street.
bool looksLikeName(const QString& line) {
  return std::none_of(line.begin(), line.end(), [](QChar c) { return c.isDigit(); });
}

bool equalLines(const QString& a, const QString& b) {
  const QStringList ofA = a.split(kLineFeed);
  const QStringList ofB = b.split(kLineFeed);
  return std::equal(ofA.begin(), ofA.end(), ofB.begin(), ofB.end(),
                    [](const QString& x, const QString& y) { return sameLetters(x, y); });
}

}  // namespace

bool ColumnMapping::isUsable() const {
  return std::any_of(_roles.begin(), _roles.end(),
                     [](ColumnRole role) { return role != ColumnRole::None; });
}

QList<int> ColumnMapping::columnsOf(ColumnRole role) const {
  QList<int> columns;
  for (int column = 0; column < _roles.size(); ++column) {
    if (_roles[column] == role) {
      columns.append(column);
    }
  }
  return columns;
}

QStringList ColumnMapping::valuesOf(const QStringList& cells, ColumnRole role) const {
  QStringList values;
  for (const int column : columnsOf(role)) {
    const QString value = tidyLabel(cells.value(column)).trimmed();
    if (!value.isEmpty()) {
      values.append(value);
    }
  }
  return values;
}

QString ColumnMapping::composePlace(const QStringList& cells) const {
  const QString city = valuesOf(cells, ColumnRole::City).join(kBlank);
  const QString state = valuesOf(cells, ColumnRole::State).join(kBlank);
  const QString zip = valuesOf(cells, ColumnRole::Zip).join(QLatin1Char('-'));
  const QString cityAndState =
      city.isEmpty() || state.isEmpty() ? city + state : city + QStringLiteral(", ") + state;
  return cityAndState.isEmpty() || zip.isEmpty() ? cityAndState + zip : cityAndState + kBlank + zip;
}

QString ColumnMapping::compose(const QStringList& cells) const {
  const QStringList name = valuesOf(cells, ColumnRole::Given) + valuesOf(cells, ColumnRole::Name);
  QStringList lines{name.join(kBlank)};
  lines += valuesOf(cells, ColumnRole::Company);
  lines += valuesOf(cells, ColumnRole::Street);
  lines += composePlace(cells);
  lines += valuesOf(cells, ColumnRole::Below);
  lines.removeAll(QString());
  return lines.join(kLineFeed);
}

ColumnMapping::Division ColumnMapping::divide(const QString& label,
                                              const QStringList& cells) const {
  Division division{blanked(cells), false};
  LabelParts parts{label.split(kLineFeed), std::nullopt, {}};
  if (has(ColumnRole::City)) {
    parts = partLabel(label);
  }
  putLinesAbove(division.cells, cells, parts.above);
  if (parts.place) {
    putPlace(division.cells, *parts.place);
  }
  putLines(division.cells, ColumnRole::Below, parts.below);
  if (!equalLines(compose(division.cells), label)) {
    division = {blanked(cells), true};
    division.cells[columnForWhole()] = label;
  }
  return division;
}

QStringList ColumnMapping::blanked(QStringList cells) const {
  while (cells.size() < _roles.size()) {
    cells.append(QString());
  }
  for (int column = 0; column < _roles.size(); ++column) {
    if (_roles[column] != ColumnRole::None) {
      cells[column].clear();
    }
  }
  return cells;
}

void ColumnMapping::putLines(QStringList& cells, ColumnRole role, const QStringList& lines) const {
  const QList<int> columns = columnsOf(role);
  for (int place = 0; place < columns.size(); ++place) {
    const bool isLast = place + 1 == columns.size();
    cells[columns[place]] =
        isLast ? QStringList(lines.mid(place)).join(kLineFeed) : lines.value(place);
  }
}

int ColumnMapping::columnForWhole() const {
  if (has(ColumnRole::Street)) {
    return columnsOf(ColumnRole::Street).first();
  }
  const auto isOnLabel = [](ColumnRole role) { return role != ColumnRole::None; };
  const auto first = std::find_if(_roles.begin(), _roles.end(), isOnLabel);
  return static_cast<int>(first - _roles.begin());
}

// What has no column of its own stays with the piece before it.
void ColumnMapping::putPlace(QStringList& cells, const Place& place) const {
  QString city = place.city;
  if (!has(ColumnRole::State)) {
    city += QStringLiteral(", ") + place.state;
  }
  if (!has(ColumnRole::Zip)) {
    city += kBlank + place.zip;
  }
  cells[columnsOf(ColumnRole::City).first()] = city;
  putLines(cells, ColumnRole::State, {place.state});
  const bool isSplit = columnsOf(ColumnRole::Zip).size() > 1 && place.zip.size() > kZipDigits;
  const QString lastDigits = place.zip.last(kZipPlusDigits);
  putLines(cells, ColumnRole::Zip,
           isSplit ? QStringList{place.zip.first(kZipDigits), lastDigits} : QStringList{place.zip});
}

void ColumnMapping::putLinesAbove(QStringList& cells, const QStringList& old,
                                  QStringList lines) const {
  const QStringList oldName = valuesOf(old, ColumnRole::Given) + valuesOf(old, ColumnRole::Name);
  const bool hasName = has(ColumnRole::Given) || has(ColumnRole::Name);
  if (hasName && !lines.isEmpty() &&
      (sameLetters(lines.first(), oldName.join(kBlank)) ||
       (lines.size() > 1 && looksLikeName(lines.first())))) {
    putName(cells, old, lines.takeFirst());
  }
  putCompany(cells, old, lines);
  putLines(cells, ColumnRole::Street, lines);
}

// Takes as many of `lines` as are companies: those the row had, and where more lines are left than
// can be streets.
void ColumnMapping::putCompany(QStringList& cells, const QStringList& old,
                               QStringList& lines) const {
  const auto streets = columnsOf(ColumnRole::Street).size();
  for (const int column : columnsOf(ColumnRole::Company)) {
    if (lines.isEmpty()) {
      return;
    }
    const QString was = tidyLabel(old.value(column));
    const bool isSame = !was.isEmpty() && sameLetters(lines.first(), was);
    const bool isLikely = lines.size() > 1 && looksLikeName(lines.first()) &&
                          (!was.isEmpty() || lines.size() > streets || !looksLikeName(lines[1]));
    if (isSame || isLikely) {
      cells[column] = lines.takeFirst();
    }
  }
}

// Words go to the columns as they did before; where their number changed, the last one is the name.
void ColumnMapping::putName(QStringList& cells, const QStringList& old, const QString& name) const {
  const QList<int> given = columnsOf(ColumnRole::Given);
  const QList<int> columns = given + columnsOf(ColumnRole::Name);
  QStringList words = name.split(kBlank, Qt::SkipEmptyParts);
  QList<qsizetype> counts;
  for (const int column : columns) {
    counts.append(old.value(column).split(kBlank, Qt::SkipEmptyParts).size());
  }
  if (std::accumulate(counts.begin(), counts.end(), qsizetype{0}) != words.size()) {
    const bool hasBoth = !given.isEmpty() && given.size() < columns.size();
    counts.fill(0);
    counts.first() = words.size() - (hasBoth ? 1 : 0);
    counts[hasBoth ? given.size() : 0] += hasBoth ? 1 : 0;
  }
  for (qsizetype place = 0; place < columns.size(); ++place) {
    cells[columns[place]] = QStringList(words.first(counts[place])).join(kBlank);
    words.remove(0, counts[place]);
  }
}

}  // namespace postwright::tables
