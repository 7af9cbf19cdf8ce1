#include "apps/addressbook/book/CheckHistory.h"

#include <QDir>
#include <QHash>
#include <QLoggingCategory>
#include <QStandardPaths>

#include "apps/addressbook/book/Database.h"
#include "apps/tables/FileError.h"

namespace postwright::addressbook {

namespace {

Q_LOGGING_CATEGORY(lcHistory, "postwright.addressbook.history")

constexpr int kMonthsKept = 6;

using DayOfText = QHash<QByteArray, QDate>;

DayOfText readAll(const QString& path) {
  DayOfText days;
  if (!QFile::exists(path)) {
    return days;
  }
  Database database(path, Database::Access::ReadOnly);
  QSqlQuery query = database.run(QStringLiteral("SELECT text, day FROM checks"));
  while (query.next()) {
    days.insert(query.value(0).toByteArray(), QDate::fromJulianDay(query.value(1).toLongLong()));
  }
  return days;
}

void write(Database& database, const QList<Entry>& entries, QDate today) {
  database.run(
      QStringLiteral("CREATE TABLE IF NOT EXISTS checks "
                     "(text BLOB PRIMARY KEY, day INTEGER NOT NULL) WITHOUT ROWID"));
  QSqlQuery keep = database.prepare(QStringLiteral("INSERT OR REPLACE INTO checks VALUES (?, ?)"));
  QSqlQuery forget = database.prepare(QStringLiteral("DELETE FROM checks WHERE text = ?"));
  for (const Entry& entry : entries) {
    const Check& check = entry.check;
    if (check.failure.isEmpty()) {
      database.runPrepared(keep, {check.text, check.day.toJulianDay()});
    } else {
      database.runPrepared(forget, {check.text});
    }
  }
  database.run(QStringLiteral("DELETE FROM checks WHERE day < ?"),
               {today.addMonths(-kMonthsKept).toJulianDay()});
}

}  // namespace

QString CheckHistory::usualPath() {
  const QDir folder(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation));
  folder.mkpath(QStringLiteral("."));
  return folder.filePath(QStringLiteral("checks.sqlite"));
}

void CheckHistory::fill(QList<Entry>& entries) const try {
  const DayOfText days = readAll(_path);
  if (days.isEmpty()) {
    return;
  }
  for (Entry& entry : entries) {
    if (entry.check.day.isValid()) {
      continue;
    }
    const QByteArray text = textFingerprint(entry.label);
    if (const auto found = days.constFind(text); found != days.cend()) {
      entry.check = {*found, text, {}};
    }
  }
} catch (const tables::FileError& error) {
  qCWarning(lcHistory).noquote() << "earlier checks are not known:" << error.message();
}

void CheckHistory::remember(const QList<Entry>& entries, QDate today) const try {
  Database database(_path, Database::Access::ReadWrite);
  Database::Transaction transaction(database);
  write(database, entries, today);
  transaction.commit();
} catch (const tables::FileError& error) {
  qCWarning(lcHistory).noquote() << "checks are not remembered:" << error.message();
}

}  // namespace postwright::addressbook
