#include "apps/addressbook/formats/store/StoreFile.h"

#include <sys/stat.h>

#include <QFileInfo>
#include <QSet>

#include "apps/addressbook/book/BookFormat.h"
#include "apps/addressbook/book/Database.h"
#include "apps/tables/FileError.h"
#include "apps/tables/ReplacementFile.h"

namespace postwright::addressbook {

namespace {

constexpr QByteArrayView kSignature("SQLite format 3\0", 16);
constexpr qint64 kApplicationId = 0x50574142;  // "PWAB"
constexpr qint64 kSchemaVersion = 3;

const QStringList kColumns = {QStringLiteral("id"),
                              QStringLiteral("label"),
                              QStringLiteral("checked_on"),
                              QStringLiteral("checked_text"),
                              QStringLiteral("failure"),
                              QStringLiteral("confirmation"),
                              QStringLiteral("confirmation_source"),
                              QStringLiteral("delivery_point")};
const QString kConfirmation = QStringLiteral("confirmation INTEGER NOT NULL DEFAULT 0");
const QString kSource = QStringLiteral("confirmation_source TEXT NOT NULL DEFAULT ''");
const QString kPoint = QStringLiteral("delivery_point TEXT NOT NULL DEFAULT ''");

QString quoted(const QString& identifier) {
  QString doubled = identifier;
  return QLatin1Char('"') + doubled.replace(QLatin1Char('"'), QStringLiteral("\"\"")) +
         QLatin1Char('"');
}

void createSchema(Database& database) {
  database.run(QStringLiteral("PRAGMA application_id = %1").arg(kApplicationId));
  database.run(QStringLiteral("PRAGMA user_version = %1").arg(kSchemaVersion));
  database.run(
      QStringLiteral(
          "CREATE TABLE entries (id INTEGER PRIMARY KEY, label TEXT NOT NULL, "
          "checked_on TEXT, checked_text BLOB, failure TEXT NOT NULL DEFAULT '', %1, %2, %3)")
          .arg(kConfirmation, kSource, kPoint));
}

// Version 1 did not say how far an address was confirmed, version 2 not where it is delivered.
QStringList missingColumns(Database& database) {
  const qint64 version = database.pragma(QStringLiteral("user_version"));
  return version >= kSchemaVersion ? QStringList()
         : version == 2            ? QStringList{kPoint}
                                   : QStringList{kConfirmation, kSource, kPoint};
}

void bringUp(Database& database) {
  const QStringList missing = missingColumns(database);
  for (const QString& column : missing) {
    database.run(QStringLiteral("ALTER TABLE entries ADD COLUMN ") + column);
  }
  if (!missing.isEmpty()) {
    database.run(QStringLiteral("PRAGMA user_version = %1").arg(kSchemaVersion));
  }
}

Check checkOf(const QSqlQuery& row) {
  return {QDate::fromString(row.value(2).toString(), Qt::ISODate),
          row.value(3).toByteArray(),
          row.value(4).toString(),
          knownOfNumber(row.value(5).toLongLong()),
          row.value(6).toString(),
          false,
          row.value(7).toString()};
}

std::unique_ptr<QFile> openSource(const QString& path) {
  auto file = std::make_unique<QFile>(path);
  return file->open(QIODevice::ReadOnly) ? std::move(file) : nullptr;
}

bool isSameFile(const QFile& open, const QString& path) {
  struct stat ofOpen = {};
  struct stat ofPath = {};
  return ::fstat(open.handle(), &ofOpen) == 0 &&
         ::stat(QFile::encodeName(path).constData(), &ofPath) == 0 &&
         ofOpen.st_dev == ofPath.st_dev && ofOpen.st_ino == ofPath.st_ino;
}

QVariantList cellsOf(const Entry& entry) {
  const Check& check = entry.check;
  const QString label = Database::text(entry.label);
  if (!check.day.isValid() || check.isUnanswered) {
    return {entry.id,           label, QVariant(),         QVariant(),
            Database::text({}), 0,     Database::text({}), Database::text({})};
  }
  return {entry.id,
          label,
          check.day.toString(Qt::ISODate),
          check.text,
          Database::text(check.failure),
          static_cast<int>(check.known),
          Database::text(check.source),
          Database::text(check.deliveryPoint)};
}

}  // namespace

const BookFormat& StoreFile::bookFormat() {
  static const BookFormat format = {
      [] { return tr("Address book"); },
      {QStringLiteral("pwbook")},
      {QStringLiteral("application/x-postwright-book")},
      [](const FileHead& head) { return head.bytes.startsWith(kSignature); },
      [](const QString& path) -> std::unique_ptr<BookFile> {
        return std::make_unique<StoreFile>(path);
      },
      [](const QString&) -> std::unique_ptr<BookFile> { return std::make_unique<StoreFile>(); },
      false};
  return format;
}

StoreFile::StoreFile(const QString& path) : _path(path) {
  tables::ReplacementFile::removeLeftovers(path);
  // Writing rolls back what a program that was killed has left half done; where it is not allowed,
  // the file is read as it is.
  const bool isWritable = QFileInfo(path).isWritable() && QFileInfo(path).exists();
  Database database(path, isWritable ? Database::Access::ReadWrite : Database::Access::ReadOnly);
  read(database);
  _source = openSource(path);
}

void StoreFile::read(Database& database) {
  if (database.pragma(QStringLiteral("application_id")) != kApplicationId) {
    throw tables::FileError(tr("This is a database, but not an address book."));
  }
  if (database.pragma(QStringLiteral("user_version")) > kSchemaVersion) {
    throw tables::FileError(
        tr("The file was made by a later version of the program. Use that one, so that "
           "nothing is lost."));
  }
  readColumns(database);
  QStringList own = kColumns;
  for (const QString& column : missingColumns(database)) {
    const QString name = column.section(u' ', 0, 0);
    own.replace(own.indexOf(name), column.section(u' ', -1));
  }
  QString columns = own.join(QLatin1Char(','));
  for (const QString& other : _otherColumns) {
    columns += QLatin1Char(',') + quoted(other);
  }
  QSqlQuery rows = database.run(QStringLiteral("SELECT %1 FROM entries ORDER BY id").arg(columns));
  while (rows.next()) {
    const qint64 id = rows.value(0).toLongLong();
    _entries.append({id, rows.value(1).toString(), checkOf(rows)});
    for (int column = 0; column < _otherColumns.size(); ++column) {
      _otherCells[id].append(rows.value(static_cast<int>(kColumns.size()) + column));
    }
  }
}

void StoreFile::readColumns(Database& database) {
  QSqlQuery columns = database.run(QStringLiteral("SELECT name FROM pragma_table_info('entries')"));
  while (columns.next()) {
    const QString name = columns.value(0).toString();
    if (!kColumns.contains(name)) {
      _otherColumns.append(name);
    }
  }
}

QStringList StoreFile::write(const QString& path, const QList<Entry>& entries) {
  tables::ReplacementFile replacement(path);
  copyTo(replacement.temporaryPath());
  {
    Database database(replacement.temporaryPath(), Database::Access::ReadWrite);
    // Nobody has the file yet and a failure throws it away: it is synced once, when it is whole.
    database.run(QStringLiteral("PRAGMA synchronous = OFF"));
    database.run(QStringLiteral("PRAGMA journal_mode = MEMORY"));
    if (!_source) {
      createSchema(database);
    }
    bringUp(database);
    Database::Transaction transaction(database);
    update(database, entries);
    transaction.commit();
  }
  replacement.commit();
  _path = path;
  _source = openSource(path);
  return {};
}

// What the next file is made of. Where another file has taken the place of the one that was read,
// or its name is gone, that one is copied as it was read.
void StoreFile::copyTo(const QString& path) const {
  if (!_source) {
    return;
  }
  if (isSameFile(*_source, _path)) {
    Database(_path, Database::Access::ReadWrite).run(QStringLiteral("VACUUM INTO ?"), {path});
    return;
  }
  _source->seek(0);
  QFile copy(path);
  if (!copy.open(QIODevice::WriteOnly) || copy.write(_source->readAll()) != _source->size() ||
      !copy.flush()) {
    throw tables::FileError(tr("The file could not be copied: %1.").arg(copy.errorString()));
  }
}

void StoreFile::update(Database& database, const QList<Entry>& entries) const {
  QSet<qint64> ids;
  ids.reserve(entries.size());
  for (const Entry& entry : entries) {
    ids.insert(entry.id);
  }
  QVariantList gone;
  QSqlQuery known = database.run(QStringLiteral("SELECT id FROM entries"));
  while (known.next()) {
    if (!ids.contains(known.value(0).toLongLong())) {
      gone.append(known.value(0));
    }
  }
  QSqlQuery remove = database.prepare(QStringLiteral("DELETE FROM entries WHERE id = ?"));
  for (const QVariant& id : gone) {
    database.runPrepared(remove, {id});
  }
  QSqlQuery put = database.prepare(upsert());
  const QVariantList noOthers(_otherColumns.size());
  for (const Entry& entry : entries) {
    database.runPrepared(put, cellsOf(entry) + _otherCells.value(entry.id, noOthers));
  }
}

// A row that is there keeps its other columns; one that was removed and came back gets them again.
QString StoreFile::upsert() const {
  QStringList columns = kColumns;
  for (const QString& other : _otherColumns) {
    columns.append(quoted(other));
  }
  QStringList marks(columns.size(), QStringLiteral("?"));
  return QStringLiteral(
             "INSERT INTO entries (%1) VALUES (%2) ON CONFLICT (id) DO UPDATE SET "
             "label = excluded.label, checked_on = excluded.checked_on, "
             "checked_text = excluded.checked_text, failure = excluded.failure, "
             "confirmation = excluded.confirmation, "
             "confirmation_source = excluded.confirmation_source, "
             "delivery_point = excluded.delivery_point "
             "WHERE (label, checked_on, checked_text, failure, confirmation, confirmation_source, "
             "delivery_point) IS NOT (excluded.label, excluded.checked_on, excluded.checked_text, "
             "excluded.failure, excluded.confirmation, excluded.confirmation_source, "
             "excluded.delivery_point)")
      .arg(columns.join(QLatin1Char(',')), marks.join(QLatin1Char(',')));
}

}  // namespace postwright::addressbook
