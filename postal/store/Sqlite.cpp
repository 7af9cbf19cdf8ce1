#include "postal/store/Sqlite.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cstring>

#include "common/FileDescriptor.h"

namespace postwright::postal {
namespace {

// SQLite would create the file with the process's own mask; its helper files take its mode.
void CreatePrivate(const std::filesystem::path& file) {
  const FileDescriptor created(open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR));
}

// SQLite would keep a count of all memory, under a lock that all connections share. Has no effect
// where some other part of the program uses SQLite already.
void LeaveMemoryUncounted() {
  [[maybe_unused]] static const int done = sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
}

// What a connection to the file of that name could not do last; null: there was no memory for one.
StoreError ErrorOf(sqlite3* connection, const std::string& name) {
  if (connection == nullptr) {
    return {name + ": no memory", SQLITE_NOMEM};
  }
  std::string why = sqlite3_errmsg(connection);
  const int code = sqlite3_extended_errcode(connection);
  int cause = sqlite3_system_errno(connection);
  if (cause == 0) {  // forgotten since; the file may still know
    sqlite3_file_control(connection, "main", SQLITE_FCNTL_LAST_ERRNO, &cause);
  }
  if (((code & 0xFF) == SQLITE_CANTOPEN || (code & 0xFF) == SQLITE_IOERR) && cause != 0) {
    why += std::string(": ") + std::strerror(cause);  // SQLite's own words do not tell it
  }
  return {name + ": " + why, code};
}

}  // namespace

bool StoreError::MayPass() const {
  const int primary = code_ & 0xFF;
  return primary == SQLITE_BUSY || primary == SQLITE_LOCKED || primary == SQLITE_FULL ||
         primary == SQLITE_IOERR || primary == SQLITE_NOMEM;
}

SqliteFile::SqliteFile(const std::filesystem::path& file, std::chrono::milliseconds patience)
    : name_(file.string()) {
  CreatePrivate(file);
  Open(name_, SQLITE_OPEN_READWRITE);
  sqlite3_busy_timeout(connection_.get(), static_cast<int>(patience.count()));
}

SqliteFile SqliteFile::OpenImage(std::span<unsigned char> image, std::string name) {
  constexpr size_t kWriteVersion = 18;  // of the file format, and after it the read version
  constexpr size_t kHeader = 100;
  if (image.size() >= kHeader) {
    image[kWriteVersion] = image[kWriteVersion + 1] = 1;  // there is no WAL beside an image
  }
  SqliteFile opened(std::move(name));
  opened.Open(":memory:", SQLITE_OPEN_READWRITE);
  const auto size = static_cast<sqlite3_int64>(image.size());
  if (sqlite3_deserialize(opened.connection_.get(), "main", image.data(), size, size,
                          SQLITE_DESERIALIZE_READONLY) != SQLITE_OK) {
    opened.Fail();
  }
  opened.Run("PRAGMA mmap_size=" + std::to_string(size));  // pages are read where they are
  opened.ReadAsItIs();
  return opened;
}

// One transaction for all that will ever be read: where each statement had its own, each would
// begin with a look whether the file has changed.
void SqliteFile::ReadAsItIs() {
  Run("BEGIN");
  Number("SELECT count(*) FROM sqlite_schema");
}

void SqliteFile::Open(const std::string& name, int flags) {
  LeaveMemoryUncounted();
  sqlite3* opened = nullptr;
  const int end = sqlite3_open_v2(name.c_str(), &opened, flags | SQLITE_OPEN_NOMUTEX, nullptr);
  connection_.reset(opened);
  if (end != SQLITE_OK) {
    Fail();
  }
}

void SqliteFile::Empty() {
  sqlite3_db_config(connection_.get(), SQLITE_DBCONFIG_RESET_DATABASE, 1, nullptr);
  Run("VACUUM");
  sqlite3_db_config(connection_.get(), SQLITE_DBCONFIG_RESET_DATABASE, 0, nullptr);
}

void SqliteFile::Run(const std::string& statements) {
  if (sqlite3_exec(connection_.get(), statements.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
    Fail();
  }
}

int64_t SqliteFile::Number(const std::string& statement) {
  SqliteStatement compiled(*this, statement);
  return compiled.Step() ? compiled.Number(0) : 0;
}

void SqliteFile::Fail() const {
  throw ErrorOf(connection_.get(), name_);
}

SqliteStatement::SqliteStatement(SqliteFile& file, const std::string& text) : file_(file) {
  sqlite3_stmt* compiled = nullptr;
  const int end = sqlite3_prepare_v3(file.connection_.get(), text.c_str(), -1,
                                     SQLITE_PREPARE_PERSISTENT, &compiled, nullptr);
  statement_.reset(compiled);
  if (end != SQLITE_OK) {
    file.Fail();
  }
}

void SqliteStatement::Bind(int parameter, std::string_view text) {
  if (sqlite3_bind_text64(statement_.get(), parameter, text.data(), text.size(), SQLITE_STATIC,
                          SQLITE_UTF8) != SQLITE_OK) {
    file_.Fail();
  }
}

void SqliteStatement::Bind(int parameter, int64_t number) {
  if (sqlite3_bind_int64(statement_.get(), parameter, number) != SQLITE_OK) {
    file_.Fail();
  }
}

void SqliteStatement::Bind(int parameter, SqliteBytes bytes) {
  if (sqlite3_bind_blob64(statement_.get(), parameter, bytes.bytes.data(), bytes.bytes.size(),
                          SQLITE_STATIC) != SQLITE_OK) {
    file_.Fail();
  }
}

bool SqliteStatement::Step() {
  const int end = sqlite3_step(statement_.get());
  if (end == SQLITE_ROW || end == SQLITE_DONE) {
    return end == SQLITE_ROW;
  }
  const StoreError error = ErrorOf(file_.connection_.get(), file_.name_);
  Reset();
  throw error;
}

void SqliteStatement::Reset() {
  sqlite3_reset(statement_.get());
}

std::string SqliteStatement::Text(int column) const {
  const auto* const text =
      reinterpret_cast<const char*>(sqlite3_column_text(statement_.get(), column));
  return text == nullptr
             ? std::string()
             : std::string(text,
                           static_cast<size_t>(sqlite3_column_bytes(statement_.get(), column)));
}

}  // namespace postwright::postal
