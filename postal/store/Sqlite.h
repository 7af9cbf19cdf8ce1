#ifndef POSTWRIGHT_POSTAL_STORE_SQLITE_H_
#define POSTWRIGHT_POSTAL_STORE_SQLITE_H_

#include <sqlite3.h>

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

namespace postwright::postal {

// What SQLite could not do; what() names the file and says why.
class StoreError : public std::runtime_error {
 public:
  StoreError(const std::string& what, int code) : std::runtime_error(what), code_(code) {}

  // Says whether the same may go well later: the disk is full or failed, a lock is held.
  bool MayPass() const;

  // Says whether the file is not as SQLite has written it.
  bool IsDamage() const {
    return (code_ & 0xFF) == SQLITE_CORRUPT || (code_ & 0xFF) == SQLITE_NOTADB;
  }

 private:
  int code_;  // of SQLite
};

// One connection to an SQLite file, for one thread at a time.
//
//   SqliteFile file("answers.sqlite", std::chrono::milliseconds(200));
//   file.Run("CREATE TABLE IF NOT EXISTS t(a TEXT)");
//   SqliteStatement insert(file, "INSERT INTO t VALUES(?)");
//   SqliteQuery(insert, "text").Step();
//
// Every operation throws StoreError where it fails: a full disk, a lock held by another for longer
// than `patience`, a file that is not a database.
class SqliteFile {
 public:
  // Opens `file`, which is created, for its owner alone, where there is none.
  SqliteFile(const std::filesystem::path& file, std::chrono::milliseconds patience);

  // Opens the image of a file (FileImage), which must outlive the connection, for reading alone: no
  // locks are taken and nothing is written beside the file. Any number of connections may share it.
  // `name` stands for it in errors.
  static SqliteFile OpenImage(std::span<unsigned char> image, std::string name);

  // Takes everything out of the file, also of one that is damaged or of another kind. Fails where
  // another connection holds its lock. Not within a transaction.
  void Empty();

  // Runs statements without parameters, whose rows go nowhere.
  void Run(const std::string& statements);

  // Returns the first column of a statement's first row as a number; 0 where there is no row.
  int64_t Number(const std::string& statement);

  // Returns the number of rows that the last statement changed.
  int64_t Changes() const { return sqlite3_changes64(connection_.get()); }

  // Returns the number of the row that was put in last.
  int64_t LastRow() const { return sqlite3_last_insert_rowid(connection_.get()); }

 private:
  friend class SqliteStatement;

  struct Close {
    void operator()(sqlite3* connection) const { sqlite3_close(connection); }
  };

  explicit SqliteFile(std::string name) : name_(std::move(name)) {}

  void Open(const std::string& name, int flags);
  void ReadAsItIs();
  [[noreturn]] void Fail() const;

  std::string name_;
  std::unique_ptr<sqlite3, Close> connection_;
};

// Bytes that are no text. Borrows them.
struct SqliteBytes {
  std::string_view bytes;
};

// A statement, compiled once. Borrows the file. Parameters and columns are counted as SQLite counts
// them: parameters from 1, columns from 0.
class SqliteStatement {
 public:
  SqliteStatement(SqliteFile& file, const std::string& text);

  // Texts and bytes must live until the next Reset.
  void Bind(int parameter, std::string_view text);
  void Bind(int parameter, int64_t number);
  void Bind(int parameter, SqliteBytes bytes);

  // Returns true where there is a row. Resets the statement where it fails.
  bool Step();

  // Makes the statement ready for other parameters and lets go of its lock.
  void Reset();

  // Bytes are read as text, too, as they are.
  std::string Text(int column) const;
  int64_t Number(int column) const { return sqlite3_column_int64(statement_.get(), column); }

 private:
  struct Finalize {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
  };

  SqliteFile& file_;
  std::unique_ptr<sqlite3_stmt, Finalize> statement_;
};

// One run of a statement: binds its parameters in their order, and resets it at the end, however
// that comes.
//
//   for (SqliteQuery query(find, key); query.Step();) { … find.Text(0) … }
//
// Texts must live as long as the query.
class SqliteQuery {
 public:
  template <typename... Values>
  explicit SqliteQuery(SqliteStatement& statement, const Values&... values)
      : statement_(statement) {
    int parameter = 0;
    (statement.Bind(++parameter, values), ...);
  }
  ~SqliteQuery() { statement_.Reset(); }
  SqliteQuery(const SqliteQuery&) = delete;
  SqliteQuery& operator=(const SqliteQuery&) = delete;

  bool Step() { return statement_.Step(); }

 private:
  SqliteStatement& statement_;
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_STORE_SQLITE_H_
