#include "apps/tables/ColumnMapping.h"

#include <algorithm>
#include <numeric>

#include "apps/tables/Country.h"
#include "apps/tables/PackedAddress.h"

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

// A single cell with the whole address may hold it in its parts.
QStringList ColumnMapping::composeStreet(const QStringList& cells) const {
  const QStringList streets = valuesOf(cells, ColumnRole::Street);
  const QStringList lines = streets.size() == 1 && !has(ColumnRole::City)
                                ? unpackedAddress(streets.first())
                                : QStringList();
  return lines.isEmpty() ? streets : lines;
}

// The country is the last line, and not one within the United States.
QString ColumnMapping::composeCountry(const QStringList& cells) const {
  const QString country = valuesOf(cells, ColumnRole::Country).join(kBlank);
  return isHomeCountry(country) ? QString() : countryName(country);
}

bool ColumnMapping::hasAddress(const QStringList& cells) const {
  return withoutAddress(cells) != cells;
}

QStringList ColumnMapping::withoutAddress(QStringList cells) const {
  for (qsizetype column = 0; column < std::min(_roles.size(), cells.size()); ++column) {
    const ColumnRole role = _roles[column];
    if (role == ColumnRole::Street || role == ColumnRole::City || role == ColumnRole::State ||
        role == ColumnRole::Zip || role == ColumnRole::Below) {
      cells[column].clear();
    }
  }
  return cells;
}

QList<int> ColumnMapping::nameColumns() const {
  return columnsOf(ColumnRole::Title) + columnsOf(ColumnRole::Given) + columnsOf(ColumnRole::Name) +
         columnsOf(ColumnRole::Suffix);
}

QString ColumnMapping::compose(const QStringList& cells) const {
  QStringList name;
  for (const ColumnRole role :
       {ColumnRole::Title, ColumnRole::Given, ColumnRole::Name, ColumnRole::Suffix}) {
    name += valuesOf(cells, role);
  }
  QStringList lines{name.join(kBlank)};
  lines += valuesOf(cells, ColumnRole::Company);
  lines += composeStreet(cells);
  lines += composePlace(cells);
  lines += valuesOf(cells, ColumnRole::Below);
  lines += composeCountry(cells);
  lines.removeAll(QString());
  return lines.join(kLineFeed);
}

QString ColumnMapping::lastName(const QStringList& cells) const {
  const QString last = valuesOf(cells, ColumnRole::Name).join(kBlank);
  const bool isNamed = !last.isEmpty() || !valuesOf(cells, ColumnRole::Given).isEmpty();
  return !isNamed                 ? valuesOf(cells, ColumnRole::Company).value(0)
         : has(ColumnRole::Given) ? last
                                  : QString();
}

ColumnMapping::Division ColumnMapping::divide(const QString& label,
                                              const QStringList& cells) const {
  Division division{blanked(cells), false};
  if (!isUsable()) {
    return {cells, false};
  }
  LabelParts parts{label.split(kLineFeed), std::nullopt, {}};
  if (has(ColumnRole::City)) {
    parts = partLabel(label);
  }
  putCountry(division.cells, cells, parts);
  if (!parts.place) {
    keepForeign(division.cells, cells, parts);
  }
  putLinesAbove(division.cells, cells, parts.above);
  if (parts.place) {
    putPlace(division.cells, *parts.place);
  }
  putLines(division.cells, ColumnRole::Below, parts.below);
  packAddress(division.cells, cells);
  if (!equalLines(compose(division.cells), label)) {
    division = {blanked(cells), true};
    division.cells[columnForWhole()] = label;
  }
  return division;
}

// The line of a country stays as its column had it, code or name. A label within the United States
// names none, so what the column says of them stays too.
void ColumnMapping::putCountry(QStringList& cells, const QStringList& old,
                               LabelParts& parts) const {
  if (!has(ColumnRole::Country)) {
    return;
  }
  const QList<int> columns = columnsOf(ColumnRole::Country);
  const QString was = composeCountry(old);
  QStringList& lines = parts.place ? parts.below : parts.above;
  const bool isSame = !was.isEmpty() && !lines.isEmpty() && sameLetters(lines.last(), was);
  if (isSame || was.isEmpty()) {
    for (const int column : columns) {
      cells[column] = old.value(column);
    }
  }
  if (isSame) {
    lines.removeLast();
  } else if (parts.place && !lines.isEmpty() && !has(ColumnRole::Below)) {
    cells[columns.first()] = lines.takeLast();
  }
}

// A place of another country is not read, but where it is as it was its columns are too.
void ColumnMapping::keepForeign(QStringList& cells, const QStringList& old,
                                LabelParts& parts) const {
  const QString was = composePlace(old);
  if (was.isEmpty() || parts.above.isEmpty() || !sameLetters(parts.above.last(), was)) {
    return;
  }
  parts.above.removeLast();
  for (const ColumnRole role : {ColumnRole::City, ColumnRole::State, ColumnRole::Zip}) {
    for (const int column : columnsOf(role)) {
      cells[column] = old.value(column);
    }
  }
}

// An address that was in its parts in one cell goes there in the same way.
void ColumnMapping::packAddress(QStringList& cells, const QStringList& old) const {
  const QList<int> columns = columnsOf(ColumnRole::Street);
  if (has(ColumnRole::City) || columns.size() != 1) {
    return;
  }
  QString& cell = cells[columns.first()];
  const QString packed = packedAddress(cell.split(kLineFeed), old.value(columns.first()).trimmed());
  cell = packed.isEmpty() ? cell : packed;
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
void ColumnMapping::putPlace(QStringList& cells, const PlaceParts& place) const {
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
  QStringList oldName;
  for (const int column : nameColumns()) {
    oldName.append(old.value(column));
  }
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

// Words go to the columns as they did before; where their number changed, title and suffix stay
// where they are the same, and the last one of the others is the name.
void ColumnMapping::putName(QStringList& cells, const QStringList& old, const QString& name) const {
  const auto wordsOf = [&old](int column) {
    return old.value(column).split(kBlank, Qt::SkipEmptyParts);
  };
  QStringList words = name.split(kBlank, Qt::SkipEmptyParts);
  for (const int column : columnsOf(ColumnRole::Title)) {
    const QStringList was = wordsOf(column);
    if (!was.isEmpty() &&
        sameLetters(QStringList(words.mid(0, was.size())).join(kBlank), was.join(kBlank))) {
      cells[column] = QStringList(words.mid(0, was.size())).join(kBlank);
      words.remove(0, was.size());
    }
  }
  const QList<int> suffixes = columnsOf(ColumnRole::Suffix);
  for (auto column = suffixes.crbegin(); column != suffixes.crend(); ++column) {
    const QStringList was = wordsOf(*column);
    const qsizetype first = words.size() - was.size();
    if (!was.isEmpty() && first >= 0 &&
        sameLetters(QStringList(words.mid(first)).join(kBlank), was.join(kBlank))) {
      cells[*column] = QStringList(words.mid(first)).join(kBlank);
      words.resize(first);
    }
  }
  const QList<int> given = columnsOf(ColumnRole::Given);
  const QList<int> columns = given + columnsOf(ColumnRole::Name);
  QList<qsizetype> counts;
  for (const int column : columns) {
    counts.append(wordsOf(column).size());
  }
  if (std::accumulate(counts.begin(), counts.end(), qsizetype{0}) != words.size()) {
    const bool hasBoth = !given.isEmpty() && given.size() < columns.size() && !words.isEmpty();
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
