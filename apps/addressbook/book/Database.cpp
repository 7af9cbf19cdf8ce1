#include "apps/addressbook/book/Database.h"

#include <QCoreApplication>
#include <QSqlError>

#include "apps/tables/FileError.h"

namespace postwright::addressbook {

namespace {

[[noreturn]] void fail(const QSqlError& error) {
  throw tables::FileError(
      QCoreApplication::translate("postwright::addressbook::Database", "The database answers: %1.")
          .arg((error.databaseText().isEmpty() ? error.text() : error.databaseText()).trimmed()));
}

QString freshConnectionName() {
  static int count = 0;
  return QStringLiteral("addressbook-%1").arg(++count);
}

}  // namespace

Database::Database(const QString& path, Access access)
    : _connection(freshConnectionName()),
      _database(QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), _connection)) {
  _database.setDatabaseName(path);
  if (access == Access::ReadOnly) {
    _database.setConnectOptions(QStringLiteral("QSQLITE_OPEN_READONLY"));
  }
  if (!_database.open()) {
    const QSqlError error = _database.lastError();
    _database = QSqlDatabase();
    QSqlDatabase::removeDatabase(_connection);
    fail(error);
  }
}

Database::~Database() {
  _database.close();
  _database = QSqlDatabase();  // the last user of the connection must go before the connection
  QSqlDatabase::removeDatabase(_connection);
}

QSqlQuery Database::run(const QString& statement, const QVariantList& values) {
  QSqlQuery query = prepare(statement);
  runPrepared(query, values);
  return query;
}

QSqlQuery Database::prepare(const QString& statement) {
  QSqlQuery query(_database);
  query.setForwardOnly(true);
  if (!query.prepare(statement)) {
    fail(query.lastError());
  }
  return query;
}

void Database::runPrepared(QSqlQuery& query, const QVariantList& values) {
  for (int place = 0; place < values.size(); ++place) {
    query.bindValue(place, values[place]);
  }
  if (!query.exec()) {
    fail(query.lastError());
  }
}

qint64 Database::pragma(const QString& name) {
  QSqlQuery query = run(QStringLiteral("PRAGMA ") + name);
  return query.next() ? query.value(0).toLongLong() : 0;
}

Database::Transaction::Transaction(Database& database) : _database(database) {
  if (!_database._database.transaction()) {
    fail(_database._database.lastError());
  }
}

Database::Transaction::~Transaction() {
  if (!_isCommitted) {
    _database._database.rollback();
  }
}

void Database::Transaction::commit() {
  if (!_database._database.commit()) {
    fail(_database._database.lastError());
  }
  _isCommitted = true;
}

}  // namespace postwright::addressbook
