#include "apps/postwright/table/LabelColumns.h"

#include <postwright/AddressInfo.h>
#include <postwright/AddressParser.h>

#include <algorithm>
#include <utility>

#include "apps/postwright/stream/Failure.h"
#include "apps/postwright/stream/LabelLine.h"
#include "apps/tables/LabelText.h"

namespace postwright {

namespace {

using tables::ColumnRole;

struct RoleName {
  const char* name;
  ColumnRole role;
};

// In the order of the label: where a table has the unit before the street, the label has not.
constexpr RoleName kRoles[] = {
    {"title", ColumnRole::Title},   {"given", ColumnRole::Given},     {"name", ColumnRole::Name},
    {"suffix", ColumnRole::Suffix}, {"company", ColumnRole::Company}, {"label", ColumnRole::Street},
    {"street", ColumnRole::Street}, {"unit", ColumnRole::Street},     {"city", ColumnRole::City},
    {"state", ColumnRole::State},   {"zip", ColumnRole::Zip},         {"zip4", ColumnRole::Zip},
    {"below", ColumnRole::Below},   {"country", ColumnRole::Country},
};

constexpr qsizetype kZipDigits = 5;

struct NamedColumn {
  QString role;
  QString column;
};

// A title may hold a comma: a piece without "=" belongs to the one before it.
QList<NamedColumn> PiecesOf(const std::string& named) {
  QList<NamedColumn> pieces;
  for (const QString& piece : QString::fromStdString(named).split(QLatin1Char(','))) {
    const qsizetype sign = piece.indexOf(QLatin1Char('='));
    if (sign >= 0) {
      pieces.append({piece.first(sign).trimmed().toLower(), piece.sliced(sign + 1)});
    } else if (!pieces.isEmpty()) {
      pieces.last().column += QLatin1Char(',') + piece;
    }
  }
  for (NamedColumn& piece : pieces) {
    piece.column = piece.column.trimmed();
  }
  return pieces;
}

const RoleName* FindRole(const QString& name) {
  const auto* const found =
      std::find_if(std::begin(kRoles), std::end(kRoles),
                   [&name](const RoleName& role) { return name == QLatin1String(role.name); });
  return found == std::end(kRoles) ? nullptr : found;
}

QString NamesOfRoles() {
  QStringList names;
  for (const RoleName& role : kRoles) {
    names.append(QLatin1String(role.name));
  }
  return names.join(QStringLiteral(", "));
}

bool IsNumber(const QString& column) {
  return !column.isEmpty() &&
         std::all_of(column.begin(), column.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

QString TitleOf(const QStringList& titles, int column) {
  const QString title = titles.value(column).trimmed();
  return title.isEmpty() ? QString::number(column + 1) : title;
}

int FindColumn(const QString& column, const QStringList& titles, int width) {
  for (int found = 0; found < titles.size(); ++found) {
    if (titles[found].trimmed().compare(column, Qt::CaseInsensitive) == 0) {
      return found;
    }
  }
  if (IsNumber(column) && column.toInt() >= 1 && column.toInt() <= width) {
    return column.toInt() - 1;
  }
  QStringList there;
  for (int other = 0; other < width; ++other) {
    there.append(TitleOf(titles, other));
  }
  throw Failure("the table has no column '" + column.toStdString() +
                "'; its columns are: " + there.join(QStringLiteral(", ")).toStdString());
}

// What a bare number is in a column with this title; empty where the title names no unit.
QString DesignatorOf(const QString& title) {
  static constexpr std::pair<const char*, const char*> kDesignators[] = {
      {"APT", "APT"}, {"APARTMENT", "APT"}, {"SUITE", "STE"}, {"STE", "STE"}, {"UNIT", "UNIT"}};
  const QString name = tables::lettersOf(title);
  for (const auto& [word, designator] : kDesignators) {
    if (name.startsWith(QLatin1String(word))) {
      return QLatin1String(designator);
    }
  }
  return {};
}

// "APT 4"; empty where the label has none.
QString UnitOf(const QString& label) {
  const AddressInfo info = AddressParser::GetInstance()->Parse(label.toStdWString());
  return QString::fromStdWString(info.secondaryUnit + L' ' + info.secondaryNumber).trimmed();
}

bool IsOfPerson(ColumnRole role) {
  return role == ColumnRole::Title || role == ColumnRole::Given || role == ColumnRole::Name ||
         role == ColumnRole::Suffix || role == ColumnRole::Company || role == ColumnRole::Country;
}

bool IsZip(const QString& text) {
  return text.size() == kZipDigits && IsNumber(text);
}

}  // namespace

LabelColumns::LabelColumns(const tables::AddressColumns& guessed, const QStringList& titles,
                           int width)
    : kind_(guessed.kind.toLower()) {
  QList<ColumnRole> roles;
  const int known = std::min<int>(width, static_cast<int>(guessed.mapping.roles().size()));
  const auto take = [&](int column, const QString& designator) {
    columns_.append(column);
    roles.append(guessed.mapping.roles()[column]);
    designators_.append(designator);
  };
  QList<int> units;  // after the streets, wherever they stand
  for (int column = 0; column < known; ++column) {
    const ColumnRole role = guessed.mapping.roles()[column];
    if (role == ColumnRole::Street && !DesignatorOf(titles.value(column)).isEmpty()) {
      units.append(column);
    } else if (role != ColumnRole::None) {
      take(column, {});
    }
  }
  for (const int unit : units) {
    take(unit, DesignatorOf(titles[unit]));
  }
  mapping_ = tables::ColumnMapping(roles);
}

LabelColumns::LabelColumns(const std::string& named, const QStringList& titles, int width) {
  QList<ColumnRole> roles;
  const QList<NamedColumn> pieces = PiecesOf(named);
  for (const RoleName& role : kRoles) {
    for (const NamedColumn& piece : pieces) {
      if (FindRole(piece.role) == &role) {
        columns_.append(FindColumn(piece.column, titles, width));
        roles.append(role.role);
        const QString designator = DesignatorOf(titles.value(columns_.last()));
        const bool isUnit = piece.role == u"unit";
        designators_.append(!isUnit                ? QString()
                            : designator.isEmpty() ? QStringLiteral("#")
                                                   : designator);
      }
    }
  }
  mapping_ = tables::ColumnMapping(roles);
}

bool LabelColumns::IsUsable() const {
  return mapping_.roles().contains(ColumnRole::Street);
}

QStringList LabelColumns::CellsOf(const QStringList& row) const {
  QStringList cells;
  for (const int column : columns_) {
    cells.append(row.value(column));
  }
  return cells;
}

bool LabelColumns::IsBareUnit(int place, const QString& cell) const {
  return !designators_[place].isEmpty() && postwright::IsBareUnit(cell.trimmed().toStdWString());
}

QString LabelColumns::LabelOf(const QStringList& row) const {
  QStringList cells = CellsOf(row);
  for (int place = 0; place < cells.size(); ++place) {
    if (IsBareUnit(place, cells[place])) {
      cells[place] = designators_[place] + QLatin1Char(' ') + cells[place].trimmed();
    }
  }
  return mapping_.hasAddress(cells) ? mapping_.compose(cells) : QString();
}

// A unit that had a column keeps it: the corrected line has it after the street.
void LabelColumns::PutUnit(const QStringList& old, const QString& unit, QStringList& cells) const {
  if (unit.isEmpty()) {
    return;
  }
  const QString end = QLatin1Char(' ') + unit;
  int street = -1;
  for (int place = 0; place < cells.size(); ++place) {
    if (mapping_.roles()[place] != ColumnRole::Street) {
      continue;
    }
    if (cells[place].endsWith(end, Qt::CaseInsensitive) && street < 0) {
      street = place;
    } else if (street >= 0 && cells[place].isEmpty() &&
               (!old[place].trimmed().isEmpty() || !designators_[place].isEmpty())) {
      cells[place] = cells[street].last(unit.size());
      cells[street].chop(end.size());
      const QString designator = designators_[place] + QLatin1Char(' ');
      if (IsBareUnit(place, old[place]) && unit.startsWith(designator)) {
        cells[place].remove(0, designator.size());
      }
      return;
    }
  }
}

std::optional<QStringList> LabelColumns::WithLabel(const QStringList& row,
                                                   const QString& label) const {
  const QStringList old = CellsOf(row);
  tables::ColumnMapping::Division division = mapping_.divide(label, old);
  if (division.isWhole && columns_.size() > 1) {
    return std::nullopt;
  }
  PutUnit(old, UnitOf(label), division.cells);
  QStringList fixed = row;
  for (int place = 0; place < columns_.size(); ++place) {
    const ColumnRole role = mapping_.roles()[place];
    QString& cell = division.cells[place];
    if (IsOfPerson(role) && cell.simplified() == old[place].simplified()) {
      cell = old[place];
    } else if (role == ColumnRole::Zip && IsZip(old[place].trimmed()) &&
               IsZip(cell.first(std::min(cell.size(), kZipDigits)))) {
      cell.truncate(kZipDigits);
    }
    while (fixed.size() <= columns_[place]) {
      fixed.append(QString());
    }
    fixed[columns_[place]] = cell;
  }
  return fixed;
}

QString LabelColumns::Describe(const QStringList& titles) const {
  QStringList pieces;
  for (int place = 0; place < columns_.size(); ++place) {
    const auto* const role =
        std::find_if(std::begin(kRoles), std::end(kRoles), [this, place](const RoleName& each) {
          const bool isUnit = !designators_[place].isEmpty();
          return each.role == mapping_.roles()[place] && QLatin1String(each.name) != u"label" &&
                 (QLatin1String(each.name) == u"unit" || !isUnit);
        });
    pieces.append(QLatin1String(role->name) + QLatin1Char('=') + TitleOf(titles, columns_[place]));
  }
  return pieces.join(QStringLiteral(", "));
}

std::string CheckColumns(const std::string& named) {
  const QList<NamedColumn> pieces = PiecesOf(named);
  for (const NamedColumn& piece : pieces) {
    if (FindRole(piece.role) == nullptr || piece.column.isEmpty()) {
      return "'" + piece.role.toStdString() + "=" + piece.column.toStdString() +
             "' is not a column as in street=Address 1; what a column can be: " +
             NamesOfRoles().toStdString();
    }
  }
  const bool hasStreet = std::any_of(pieces.begin(), pieces.end(), [](const NamedColumn& piece) {
    return FindRole(piece.role)->role == ColumnRole::Street;
  });
  return hasStreet ? "" : "no column is the street: it takes street=COLUMN, or label=COLUMN";
}

bool NamesTitles(const std::string& named) {
  const QList<NamedColumn> pieces = PiecesOf(named);
  return !std::all_of(pieces.begin(), pieces.end(),
                      [](const NamedColumn& piece) { return IsNumber(piece.column); });
}

}  // namespace postwright
