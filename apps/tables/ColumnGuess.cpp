#include "apps/tables/ColumnGuess.h"

#include <QMap>
#include <QRegularExpression>
#include <algorithm>

#include "apps/tables/ColumnNames.h"
#include "apps/tables/LabelText.h"

namespace postwright::tables {

namespace {

constexpr double kMost = 0.8;
constexpr double kMany = 0.5;

// Cells of a column that hold something, and how many of them `is` says yes to.
template <typename Test>
double shareOf(const QList<QStringList>& rows, qsizetype column, const Test& is) {
  int filled = 0;
  int good = 0;
  for (const QStringList& row : rows) {
    const QString cell = row.value(column).trimmed();
    filled += cell.isEmpty() ? 0 : 1;
    good += !cell.isEmpty() && is(cell) ? 1 : 0;
  }
  return filled == 0 ? 0 : static_cast<double>(good) / filled;
}

double shareFilled(const QList<QStringList>& rows, const ColumnMapping& mapping) {
  const auto filled = std::count_if(rows.begin(), rows.end(), [&mapping](const QStringList& row) {
    return mapping.hasAddress(row);
  });
  return rows.isEmpty() ? 1 : static_cast<double>(filled) / static_cast<double>(rows.size());
}

bool isHonorific(const QString& cell) {
  static const QStringList known =
      QStringLiteral(
          "MR MRS MS MISS MX DR PROF REV FR SR SRA SRTA DRA DON DONA HON SIR CAPT MRANDMRS "
          "MRMRS DRANDMRS THE RABBI PASTOR SISTER BROTHER")
          .split(QLatin1Char(' '));
  return known.contains(lettersOf(cell));
}

bool isZip(const QString& cell) {
  static const QRegularExpression form(QStringLiteral(R"(^\d{5}(-?\d{4})?$)"));
  return form.match(cell).hasMatch();
}

// Of a ZIP code that lost its zero in a spreadsheet four digits are left.
bool isShortZip(const QString& cell) {
  static const QRegularExpression form(QStringLiteral(R"(^\d{4,5}(-\d{4})?$)"));
  return form.match(cell).hasMatch();
}

bool isState(const QString& cell) {
  static const QStringList codes =
      QStringLiteral(
          "AL AK AZ AR CA CO CT DE DC FL GA HI ID IL IN IA KS KY LA ME MD MA MI MN MS "
          "MO MT NE NV NH NJ NM NY NC ND OH OK OR PA PR RI SC SD TN TX UT VT VA WA WV "
          "WI WY GU VI AS MP AA AE AP")
          .split(QLatin1Char(' '));
  return codes.contains(cell.toUpper());
}

bool isStreet(const QString& cell) {
  static const QRegularExpression form(
      QStringLiteral(R"(^(\d+[-/\w]*\s+\S*[A-Za-z]|p\.?\s*o\.?\s*box\s|(rr|hc)\s*\d))"),
      QRegularExpression::CaseInsensitiveOption);
  return !cell.contains(QLatin1Char('@')) && form.match(cell).hasMatch();
}

bool isWords(const QString& cell) {
  return std::none_of(cell.begin(), cell.end(),
                      [](QChar c) { return c.isDigit() || c == QLatin1Char('@'); });
}

bool isSeveralWords(const QString& cell) {
  return isWords(cell) && cell.contains(QLatin1Char(' '));
}

// A title is one by what it holds: elsewhere a column of that name is the place in a company, and a
// salutation how letters begin.
void checkTitles(const QStringList& names, const QList<QStringList>& rows,
                 QList<ColumnRole>& roles) {
  for (qsizetype column = 0; column < roles.size(); ++column) {
    if (roles[column] == ColumnRole::Title) {
      const bool isGood =
          rows.isEmpty() ? names[column] != u"TITLE" : shareOf(rows, column, isHonorific) >= kMany;
      roles[column] = isGood ? ColumnRole::Title : ColumnRole::None;
    }
  }
}

// A column with the full name, where most rows have one, makes those with its pieces superfluous.
void preferFullName(const QStringList& names, const QList<QStringList>& rows,
                    QList<ColumnRole>& roles) {
  const auto full = std::find_if(names.begin(), names.end(), isFullName);
  if (full == names.end()) {
    return;
  }
  const qsizetype place = full - names.begin();
  const auto named = std::count_if(rows.begin(), rows.end(), [&](const QStringList& row) {
    return !row.value(place).trimmed().isEmpty();
  });
  const bool isFull = named >= kMany * static_cast<double>(rows.size());
  for (qsizetype column = 0; column < roles.size(); ++column) {
    const ColumnRole role = roles[column];
    const bool isPiece = role == ColumnRole::Title || role == ColumnRole::Given ||
                         role == ColumnRole::Suffix ||
                         (role == ColumnRole::Name && column != place);
    const bool isOther = isFull ? isPiece : column == place;
    roles[column] = isOther ? ColumnRole::None : role;
  }
}

// Four digits may be anything; after a state they are a ZIP code.
void takeShortZips(const QList<QStringList>& rows, QList<ColumnRole>& roles) {
  const qsizetype zip = roles.indexOf(ColumnRole::State) + 1;
  if (zip > 0 && zip < roles.size() && !roles.contains(ColumnRole::Zip) &&
      roles[zip] == ColumnRole::None && shareOf(rows, zip, isShortZip) >= kMost) {
    roles[zip] = ColumnRole::Zip;
  }
}

// Columns without a name that says something, by what they hold.
QList<ColumnRole> rolesByContent(const QList<QStringList>& rows, QList<ColumnRole> roles) {
  for (qsizetype column = 0; column < roles.size(); ++column) {
    if (roles[column] != ColumnRole::None) {
      continue;
    }
    roles[column] =
        shareOf(rows, column, isZip) >= kMost      ? ColumnRole::Zip
        : shareOf(rows, column, isState) >= kMost  ? ColumnRole::State
        : shareOf(rows, column, isStreet) >= kMany ? ColumnRole::Street
        : shareOf(rows, column, [](const QString& cell) { return readPlace(cell).has_value(); }) >=
                kMany
            ? ColumnRole::City
            : ColumnRole::None;
  }
  takeShortZips(rows, roles);
  const qsizetype street = roles.indexOf(ColumnRole::Street);
  const qsizetype state = std::max(roles.indexOf(ColumnRole::State), qsizetype{0});
  if (state > 0 && !roles.contains(ColumnRole::City) && roles[state - 1] == ColumnRole::None &&
      shareOf(rows, state - 1, isWords) >= kMost) {
    roles[state - 1] = ColumnRole::City;
  }
  const bool hasName = std::any_of(roles.begin(), roles.end(), isPersonal);
  for (qsizetype column = 0; column < street && !hasName; ++column) {
    if (roles[column] == ColumnRole::None && shareOf(rows, column, isSeveralWords) >= kMany) {
      roles[column] = ColumnRole::Name;
      break;
    }
  }
  return street < 0 ? QList<ColumnRole>(roles.size(), ColumnRole::None) : roles;
}

// The columns of one address, by their names.
struct NamedAddress {
  QList<ColumnRole> roles;
  int kindColumn = -1;
  bool hasStreet() const { return roles.contains(ColumnRole::Street); }
};

// A column with the whole address says what others of it say once more: "Address" beside "Street",
// and "Street" beside "Address 1".
void leaveOutRepeated(const QList<NamedColumn>& columns, const QString& group,
                      QList<ColumnRole>& roles) {
  const auto has = [&](auto is) {
    return std::any_of(columns.begin(), columns.end(), [&](const NamedColumn& column) {
      return column.group == group && is(column.rest);
    });
  };
  const bool hasStreet = has([](const QString& rest) { return rest.startsWith(u"STREET"); });
  const bool hasLines = has([](const QString& rest) { return rest == u"ADDRESS1"; });
  for (qsizetype column = 0; column < columns.size(); ++column) {
    const QString& rest = columns[column].rest;
    if (columns[column].group == group &&
        ((hasStreet && rest == u"ADDRESS") || (hasLines && rest == u"STREET"))) {
      roles[column] = ColumnRole::None;
    }
  }
}

bool isUnitName(const QString& name) {
  return name.startsWith(u"APT") || name.startsWith(u"APARTMENT") || name.startsWith(u"UNIT") ||
         name.startsWith(u"SUITE") || name == u"STE";
}

QMap<QString, NamedAddress> addressesByName(const QList<NamedColumn>& columns) {
  QMap<QString, NamedAddress> addresses;
  for (qsizetype column = 0; column < columns.size(); ++column) {
    const NamedColumn& named = columns[column];
    const bool isOfAll = isPersonal(named.role) && named.group.isEmpty();
    if (isOfAll || (named.role == ColumnRole::None && !named.tellsKind)) {
      continue;
    }
    NamedAddress& address = addresses[named.group];
    address.roles.resize(columns.size());
    address.roles[column] = named.role;
    address.kindColumn = named.tellsKind ? static_cast<int>(column) : address.kindColumn;
  }
  for (auto each = addresses.begin(); each != addresses.end(); ++each) {
    leaveOutRepeated(columns, each.key(), each->roles);
  }
  // "Mailing Address, Unit, City, State, Zip": what has no street belongs to the one that has.
  const bool hasStreet = std::any_of(columns.begin(), columns.end(), [](const NamedColumn& column) {
    return column.group.isEmpty() && column.role == ColumnRole::Street && !isUnitName(column.rest);
  });
  if (addresses.size() > 1 && addresses.contains(QString()) && !hasStreet) {
    const NamedAddress rest = addresses.take(QString());
    for (NamedAddress& address : addresses) {
      for (qsizetype column = 0; column < rest.roles.size(); ++column) {
        const ColumnRole role = rest.roles[column];
        const bool isMissing = role == ColumnRole::Street || !address.roles.contains(role);
        address.roles[column] =
            role != ColumnRole::None && isMissing ? role : address.roles[column];
      }
    }
  }
  addresses.removeIf([](const auto& each) { return !each.value().hasStreet(); });
  return addresses;
}

// The columns of an address with those of the person. A name or company of its own ("Shipping
// Name") counts more, and the company is not on the home label where there is another.
QList<ColumnRole> withPersonal(QList<ColumnRole> roles, const QList<ColumnRole>& personal,
                               bool isOnlyHome) {
  const bool hasName = roles.contains(ColumnRole::Name) || roles.contains(ColumnRole::Given);
  const bool hasCompany = roles.contains(ColumnRole::Company) || isOnlyHome;
  for (qsizetype column = 0; column < roles.size(); ++column) {
    const ColumnRole role = personal[column];
    const bool isLeftOut = role == ColumnRole::Company ? hasCompany : hasName;
    roles[column] = role == ColumnRole::None || isLeftOut ? roles[column] : role;
  }
  return roles;
}

}  // namespace

bool hasStateAndZip(const QStringList& row) {
  for (qsizetype cell = 1; cell < row.size(); ++cell) {
    if (isState(row[cell - 1].trimmed()) && isShortZip(row[cell].trimmed())) {
      return true;
    }
  }
  return false;
}

QList<AddressColumns> guessColumns(const QStringList& header, const QList<QStringList>& rows) {
  QStringList names;
  QList<NamedColumn> columns;
  QList<ColumnRole> personal;
  for (const QString& title : header) {
    names.append(plainName(title));
    columns.append(readColumnName(title));
    const ColumnRole role = columns.last().role;
    personal.append(isPersonal(role) && columns.last().group.isEmpty() ? role : ColumnRole::None);
  }
  checkTitles(names, rows, personal);
  preferFullName(names, rows, personal);
  QList<AddressColumns> guessed;
  const QMap<QString, NamedAddress> addresses = addressesByName(columns);
  for (auto each = addresses.cbegin(); each != addresses.cend(); ++each) {
    const QString kind = kindOfGroup(each.key());
    const bool isOnlyHome = kind == u"Home" && addresses.size() > 1;
    guessed.append(
        {kind, each->kindColumn, ColumnMapping(withPersonal(each->roles, personal, isOnlyHome))});
  }
  std::stable_sort(guessed.begin(), guessed.end(),
                   [&rows](const AddressColumns& a, const AddressColumns& b) {
                     return shareFilled(rows, a.mapping) > shareFilled(rows, b.mapping);
                   });
  while (guessed.size() > 1 && shareFilled(rows, guessed.last().mapping) == 0) {
    guessed.removeLast();
  }
  if (guessed.isEmpty()) {
    guessed.append({{},
                    -1,
                    ColumnMapping(header.size() == 1 ? QList{ColumnRole::Street}
                                                     : rolesByContent(rows, personal))});
  }
  if (guessed.size() == 1 && guessed.first().kindColumn < 0) {
    guessed.first().kind.clear();  // there is nothing to tell it from
  }
  return guessed;
}

}  // namespace postwright::tables
