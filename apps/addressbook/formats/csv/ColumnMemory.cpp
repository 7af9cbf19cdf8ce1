#include "apps/addressbook/formats/csv/ColumnMemory.h"

#include <QCryptographicHash>
#include <QSettings>

#include "apps/tables/CsvReader.h"

namespace postwright::addressbook {

namespace {

const QLatin1Char kSeparator(' ');

QString keyFor(const QByteArray& firstLine) {
  const QByteArray digest =
      QCryptographicHash::hash(firstLine.trimmed(), QCryptographicHash::Blake2b_160);
  return QStringLiteral("columns/") + QString::fromLatin1(digest.toHex());
}

}  // namespace

std::optional<tables::TableChoice> ColumnMemory::find(const QByteArray& firstLine) {
  // "44 1 2 4 5": the code of the delimiter and the roles.
  const QString kept = QSettings().value(keyFor(firstLine)).toString();
  QStringList numbers = kept.split(kSeparator, Qt::SkipEmptyParts);
  if (numbers.size() < 2) {
    return std::nullopt;
  }
  const char delimiter = static_cast<char>(numbers.takeFirst().toInt());
  QList<tables::ColumnRole> roles;
  for (const QString& number : numbers) {
    const int role = number.toInt();
    roles.append(role > 0 && role < tables::kColumnRoles ? static_cast<tables::ColumnRole>(role)
                                                         : tables::ColumnRole::None);
  }
  tables::TableChoice choice{delimiter, tables::ColumnMapping(roles)};
  if (!tables::CsvReader::isDelimiter(delimiter) || !choice.mapping.isUsable()) {
    return std::nullopt;  // settings that someone has edited
  }
  return choice;
}

void ColumnMemory::remember(const QByteArray& firstLine, const tables::TableChoice& choice) {
  QStringList numbers{QString::number(static_cast<int>(choice.delimiter))};
  for (const tables::ColumnRole role : choice.mapping.roles()) {
    numbers.append(QString::number(static_cast<int>(role)));
  }
  QSettings().setValue(keyFor(firstLine), numbers.join(kSeparator));
}

}  // namespace postwright::addressbook
