#ifndef POSTWRIGHT_SQL_SQLITE_ANSWER_H_
#define POSTWRIGHT_SQL_SQLITE_ANSWER_H_

#include <sqlite3ext.h>

#include <new>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

// clang-format off: the macro brings its own semicolon.
SQLITE_EXTENSION_INIT3
// clang-format on

namespace postwright::sql {

// Returns the text of a value; nullopt for NULL.
inline std::optional<std::string_view> TextOf(sqlite3_value* value) {
  const unsigned char* const text = sqlite3_value_text(value);
  if (text == nullptr) {
    if (sqlite3_value_type(value) != SQLITE_NULL) {
      throw std::bad_alloc();
    }
    return std::nullopt;
  }
  return std::string_view(reinterpret_cast<const char*>(text),
                          static_cast<std::size_t>(sqlite3_value_bytes(value)));
}

inline void SetText(sqlite3_context* context, std::string_view text) {
  sqlite3_result_text64(context, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

// Runs the body of a function; an exception becomes an error of the statement.
template <typename Work>
void Answer(sqlite3_context* context, Work work) {
  try {
    work();
  } catch (const std::bad_alloc&) {
    sqlite3_result_error_nomem(context);
  } catch (const std::exception& failure) {
    const std::string message = std::string("postwright: ") + failure.what();
    sqlite3_result_error(context, message.c_str(), -1);
  }
}

}  // namespace postwright::sql

#endif  // POSTWRIGHT_SQL_SQLITE_ANSWER_H_
