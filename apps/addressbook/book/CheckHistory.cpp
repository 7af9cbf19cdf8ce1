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
constexpr qint64 kTableVersion = 2;

using CheckOfText = QHash<QByteArray, Check>;

CheckOfText readAll(const QString& path) {
  CheckOfText checks;
  if (!QFile::exists(path)) {
    return checks;
  }
  Database database(path, Database::Access::ReadOnly);
  const qint64 version = database.pragma(QStringLiteral("user_version"));
  QSqlQuery query =
      database.run(QStringLiteral("SELECT text, day, %1 FROM checks")
                       .arg(version == 0   ? QStringLiteral("'', 0, '', ''")
                            : version == 1 ? QStringLiteral("failure, known, source, ''")
                                           : QStringLiteral("failure, known, source, point")));
  while (query.next()) {
    const QByteArray text = query.value(0).toByteArray();
    checks.insert(text, {QDate::fromJulianDay(query.value(1).toLongLong()), text,
                         query.value(2).toString(), knownOfNumber(query.value(3).toLongLong()),
                         query.value(4).toString(), false, query.value(5).toString()});
  }
  return checks;
}

// The first form of the table had the day alone, the second no delivery point.
void makeTable(Database& database) {
  const qint64 version = database.pragma(QStringLiteral("user_version"));
  if (version >= kTableVersion) {
    return;
  }
  database.run(
      QStringLiteral("CREATE TABLE IF NOT EXISTS checks "
                     "(text BLOB PRIMARY KEY, day INTEGER NOT NULL) WITHOUT ROWID"));
  const QStringList since = {QStringLiteral("failure TEXT NOT NULL DEFAULT ''"),
                             QStringLiteral("known INTEGER NOT NULL DEFAULT 0"),
                             QStringLiteral("source TEXT NOT NULL DEFAULT ''"),
                             QStringLiteral("point TEXT NOT NULL DEFAULT ''")};
  for (const QString& column : since.mid(version == 0 ? 0 : since.size() - 1)) {
    database.run(QStringLiteral("ALTER TABLE checks ADD COLUMN ") + column);
  }
  database.run(QStringLiteral("PRAGMA user_version = %1").arg(kTableVersion));
}

void write(Database& database, const QList<Entry>& entries, QDate today) {
  makeTable(database);
  QSqlQuery keep = database.prepare(
      QStringLiteral("INSERT OR REPLACE INTO checks (text, day, failure, known, source, point) "
                     "VALUES (?, ?, ?, ?, ?, ?)"));
  for (const Entry& entry : entries) {
    const Check& check = entry.check;
    if (!check.isUnanswered) {
      database.runPrepared(keep,
                           {check.text, check.day.toJulianDay(), Database::text(check.failure),
                            static_cast<int>(check.known), Database::text(check.source),
                            Database::text(check.deliveryPoint)});
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
  const CheckOfText checks = readAll(_path);
  if (checks.isEmpty()) {
    return;
  }
  for (Entry& entry : entries) {
    if (entry.check.day.isValid()) {
      continue;
    }
    const auto found = checks.constFind(textFingerprint(entry.label));
    if (found != checks.cend()) {
      entry.check = *found;
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
