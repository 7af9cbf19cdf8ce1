#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_BOOK_DATABASE_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_BOOK_DATABASE_H_

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QVariantList>

namespace postwright::addressbook {

// One SQLite file, open for as long as the object lives.
//
//   Database database(path, Database::Access::ReadWrite);
//   Database::Transaction transaction(database);
//   database.run("DELETE FROM entries WHERE id = ?", {id});
//   transaction.commit();
//
// Every operation throws FileError with SQLite's own words where it fails. One thread at a time.
class Database {
 public:
  enum class Access { ReadOnly, ReadWrite };

  // ReadWrite makes the file where it is not there.
  Database(const QString& path, Access access);
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;
  ~Database();

  // Runs one statement, `values` bound to its question marks.
  QSqlQuery run(const QString& statement, const QVariantList& values = {});

  // Makes a statement ready for running it many times with runPrepared().
  QSqlQuery prepare(const QString& statement);
  void runPrepared(QSqlQuery& query, const QVariantList& values);

  // A null string would be bound as NULL, which columns of text that is always there do not take.
  static QString text(const QString& text) { return text.isNull() ? QStringLiteral("") : text; }

  // Returns the number that a pragma such as "user_version" holds.
  qint64 pragma(const QString& name);

  // Rolls back unless it was committed.
  class Transaction {
   public:
    explicit Transaction(Database& database);
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    ~Transaction();
    void commit();

   private:
    Database& _database;
    bool _isCommitted = false;
  };

 private:
  QString _connection;
  QSqlDatabase _database;
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_BOOK_DATABASE_H_
